#include <algorithm>
#include <map>

#include <gtest/gtest.h>

#include "VantryCore/persistence/Codec.h"
#include "VantryCore/persistence/VantryError.h"
#include "tests/support/JsonText.h"
#include "tests/support/RandomRecords.h"
#include "tests/support/RecordTypes.h"
#include "tests/support/SampleLibrary.h"

namespace vantry {
namespace {

using support::membersOf;

/// The keys of each record's JSON form in field order; one in brackets is optional.
template <class T>
std::vector<std::string> keysOf();

template <>
std::vector<std::string> keysOf<Library>() {
    return {"format", "version", "projects"};
}
template <>
std::vector<std::string> keysOf<Project>() {
    return {"id",
            "[conflictKey]",
            "title",
            "director",
            "[crewMembers]",
            "[castMembers]",
            "[callSheetRecords]",
            "[relatedFileRecords]",
            "notes",
            "defaults",
            "createdAt",
            "acts"};
}
template <>
std::vector<std::string> keysOf<Act>() {
    return {"id", "[conflictKey]", "title", "shots"};
}
template <>
std::vector<std::string> keysOf<Shot>() {
    return {"id",
            "[conflictKey]",
            "code",
            "title",
            "description",
            "framing",
            "movement",
            "soundDescription",
            "soundMode",
            "parameters",
            "[imageKey]",
            "strokes",
            "[scheduledAt]",
            "durationMinutes",
            "cancelled",
            "takes"};
}
template <>
std::vector<std::string> keysOf<VantryTake>() {
    return {"id",        "[conflictKey]", "number",    "[cameraNumber]", "[soundNumber]",
            "soundMode", "cameraFile",    "mixerFile", "notes",          "result",
            "stars",     "parameters",    "createdAt"};
}
template <>
std::vector<std::string> keysOf<Parameters>() {
    return {"values"};
}
template <>
std::vector<std::string> keysOf<Stroke>() {
    return {"id", "points"};
}
template <>
std::vector<std::string> keysOf<Point>() {
    return {"x", "y"};
}
template <>
std::vector<std::string> keysOf<CrewMember>() {
    return {"id", "role", "customRole", "name"};
}
template <>
std::vector<std::string> keysOf<CastMember>() {
    return {"id", "character", "actor"};
}
template <>
std::vector<std::string> keysOf<CallSheet>() {
    return {"id", "date", "timeZoneID", "fields", "people"};
}
template <>
std::vector<std::string> keysOf<CallSheetPerson>() {
    return {"id",    "[sourceID]", "isCast",   "role",  "name", "callTime",
            "phone", "makeup",     "wardrobe", "ready", "notes"};
}
template <>
std::vector<std::string> keysOf<RelatedFile>() {
    return {"id", "kind", "name", "location", "[bookmark]", "notes"};
}

struct Key {
    std::string name;
    bool optional = false;
};

template <class T>
std::vector<Key> tableOf() {
    std::vector<Key> table;
    for (const auto& key : keysOf<T>())
        table.push_back(key.front() == '[' ? Key{key.substr(1, key.size() - 2), true} : Key{key, false});
    return table;
}

// Which JSON values a field of each type takes.

struct Candidates {
    static constexpr const char* values[] = {"null", "true", "12",     "1.5",       "\"no such text\"", "[]",
                                             "{}",   "[5]",  "[null]", "{\"k\":5}", "{\"k\":null}"};
};

bool takes(const Text&, std::string_view json) {
    return json.front() == '"';
}
bool takes(bool, std::string_view json) {
    return json == "true";
}
bool takes(std::int64_t, std::string_view json) {
    return json == "12";
}
bool takes(double, std::string_view json) {
    return json == "12" || json == "1.5";
}
bool takes(const Moment&, std::string_view json) {
    return json == "12" || json == "1.5";
}
bool takes(const TextMap&, std::string_view json) {
    return json == "{}";
}
bool takes(const Bytes&, std::string_view) {
    return false;
}
template <class T>
bool takes(const T&, std::string_view) {
    return false;
}
template <class T>
bool takes(const std::vector<T>&, std::string_view json) {
    return json == "[]";
}
template <class T>
bool takes(const std::optional<T>&, std::string_view json) {
    return json == "null" || takes(T{}, json);
}

template <class T>
std::string failureOf(const std::string& json) {
    try {
        (void)Codec::decode<T>(json);
    } catch (const DecodingError& failure) {
        return failure.what();
    }
    return "";
}

template <class T>
class RecordForm : public ::testing::Test {};
TYPED_TEST_SUITE(RecordForm, support::RecordTypes, support::RecordTypeNames);

TYPED_TEST(RecordForm, HasExactlyItsKeys) {
    std::vector<std::string> expected;
    for (const auto& key : tableOf<TypeParam>())
        expected.push_back(key.name);
    std::vector<std::string> names;
    forEachField<TypeParam>([&](const auto& field) { names.emplace_back(field.name); });
    EXPECT_EQ(names, expected);

    std::sort(expected.begin(), expected.end());
    std::vector<std::string> written;
    for (const auto& member : membersOf(Codec::encode(support::completeRecord<TypeParam>())))
        written.push_back(member.key);
    EXPECT_EQ(written, expected);
}

TYPED_TEST(RecordForm, ReadsBackWhatItWrites) {
    for (std::uint64_t seed = 0; seed < 300; ++seed) {
        const auto record = support::RandomRecords(seed).make<TypeParam>();
        const std::string json = Codec::encode(record);
        const auto again = Codec::decode<TypeParam>(json);
        ASSERT_TRUE(again == record) << seed << "\n" << json;
        ASSERT_EQ(Codec::encode(again), json) << seed;
        ASSERT_EQ(Codec::encode(record), json) << seed;
    }
}

TYPED_TEST(RecordForm, IsCompactAndSortedAtEveryDepth) {
    const std::function<void(std::string_view)> expectSorted = [&](std::string_view json) {
        if (json.front() == '[')
            for (const auto& item : support::itemsOf(json))
                expectSorted(item);
        if (json.front() != '{')
            return;
        const auto members = membersOf(json);
        for (std::size_t i = 0; i < members.size(); ++i) {
            // Keys with escapes are compared by their bytes elsewhere.
            if (i > 0 && members[i].key.find('\\') == std::string::npos &&
                members[i - 1].key.find('\\') == std::string::npos) {
                ASSERT_LT(members[i - 1].key, members[i].key) << json;
            }
            expectSorted(members[i].value);
        }
    };
    for (std::uint64_t seed = 0; seed < 60; ++seed) {
        const std::string json = Codec::encode(support::RandomRecords(seed).make<TypeParam>());
        expectSorted(json);
        ASSERT_EQ(support::restyled(json, {}), json) << "blanks between the tokens";
        ASSERT_EQ(json.find_first_of("\n\r\t"), std::string::npos);
        ASSERT_EQ(json.back(), '}');
    }
}

TYPED_TEST(RecordForm, ReadsAnyLayoutAndAnyOrderOfKeys) {
    for (std::uint64_t seed = 0; seed < 60; ++seed) {
        const auto record = support::RandomRecords(seed).make<TypeParam>();
        const std::string json = Codec::encode(record);
        ASSERT_TRUE(Codec::decode<TypeParam>(support::prettyPrinted(json)) == record) << seed;
    }
}

TYPED_TEST(RecordForm, ChangesItsBytesWhenAnySingleFieldChanges) {
    for (std::uint64_t seed = 0; seed < 40; ++seed) {
        const auto record = support::RandomRecords(seed).make<TypeParam>();
        const std::string json = Codec::encode(record);
        forEachField<TypeParam>([&](const auto& field) {
            auto changed = record;
            support::change(changed.*field.member);
            const std::string other = Codec::encode(changed);
            EXPECT_NE(other, json) << field.name << " seed " << seed;
            EXPECT_TRUE(Codec::decode<TypeParam>(other) == changed) << field.name << " seed " << seed;
        });
    }
}

TYPED_TEST(RecordForm, RequiresEveryKeyThatIsNotOptional) {
    const std::string json = Codec::encode(support::completeRecord<TypeParam>());
    for (const auto& key : tableOf<TypeParam>()) {
        const std::string without = support::withoutKey(json, key.name);
        const std::string null = support::withValue(json, key.name, "null");
        if (!key.optional) {
            EXPECT_EQ(failureOf<TypeParam>(without), "missing key \"" + key.name + "\"");
            EXPECT_NE(failureOf<TypeParam>(null), "") << key.name;
            continue;
        }
        EXPECT_EQ(Codec::encode(Codec::decode<TypeParam>(without)), without) << key.name;
        EXPECT_EQ(Codec::encode(Codec::decode<TypeParam>(null)), without) << key.name;
        EXPECT_FALSE(Codec::decode<TypeParam>(without) == Codec::decode<TypeParam>(json)) << key.name;
    }
}

TYPED_TEST(RecordForm, RefusesAValueOfTheWrongTypeUnderEachKey) {
    const std::string json = Codec::encode(support::completeRecord<TypeParam>());
    forEachField<TypeParam>([&](const auto& field) {
        for (const std::string value : Candidates::values) {
            const std::string failure = failureOf<TypeParam>(support::withValue(json, field.name, value));
            const bool accepted = takes(TypeParam{}.*field.member, value);
            EXPECT_EQ(failure.empty(), accepted) << field.name << ": " << value << " " << failure;
            if (!accepted) {
                EXPECT_TRUE(failure.starts_with(std::string(field.name))) << failure;
            }
        }
    });
}

TYPED_TEST(RecordForm, IsAnObjectAndNothingElse) {
    for (const std::string value : {"null", "true", "5", "\"x\"", "[]", "{}", "[{}]"})
        EXPECT_NE(failureOf<TypeParam>(value), "") << value;
}

TYPED_TEST(RecordForm, IgnoresKeysItDoesNotKnowAndLosesThem) {
    const std::string json = Codec::encode(support::completeRecord<TypeParam>());
    auto members = membersOf(json);
    members.insert(members.begin(), {"Unknown", "{\"deep\":[1,2,{\"x\":null}]}"});
    members.push_back({"zz", "\"id\""});
    members.push_back({"ID", "5"});
    members.push_back({"", "[]"});
    EXPECT_EQ(Codec::encode(Codec::decode<TypeParam>(support::objectOf(members))), json);
}

TYPED_TEST(RecordForm, RefusesAKeyThatStandsTwice) {
    const std::string json = Codec::encode(support::completeRecord<TypeParam>());
    for (const auto& member : membersOf(json)) {
        auto twice = membersOf(json);
        twice.push_back(member);
        EXPECT_EQ(failureOf<TypeParam>(support::objectOf(twice)),
                  "the key \"" + member.key + "\" stands twice");
    }
}

TEST(ProjectForm, OfANewProjectHasNoneOfTheOptionalKeys) {
    const Project project = Project::make("Film");
    const std::string json = Codec::encode(project);
    EXPECT_TRUE(Codec::decode<Project>(json) == project);
    for (const auto& member : membersOf(json))
        for (const auto* key :
             {"conflictKey", "crewMembers", "castMembers", "callSheetRecords", "relatedFileRecords"})
            EXPECT_NE(member.key, key);
    EXPECT_EQ(membersOf(json).size(), 7U);
}

TEST(ProjectForm, KeepsAnEmptyListApartFromAnAbsentOne) {
    const std::string absent = Codec::encode(Project::make("Film"));
    for (const std::string key : {"crewMembers", "castMembers", "callSheetRecords", "relatedFileRecords"}) {
        auto members = membersOf(absent);
        members.push_back({key, "[]"});
        std::sort(members.begin(), members.end(), [](const auto& a, const auto& b) { return a.key < b.key; });
        const std::string empty = support::objectOf(members);
        Project project = Codec::decode<Project>(empty);
        EXPECT_FALSE(project == Codec::decode<Project>(absent)) << key;
        EXPECT_EQ(Codec::encode(project), empty) << key;
        EXPECT_TRUE(project.crew().empty() && project.cast().empty() && project.callSheets().empty() &&
                    project.relatedFiles().empty());
        project.setCrew({});
        project.setCast({});
        project.setCallSheets({});
        project.setRelatedFiles({});
        EXPECT_EQ(Codec::encode(project), absent) << key;
    }
}

TEST(EnumForm, IsOneOfTheKnownTextsToTheLetter) {
    const std::string crew = Codec::encode(support::completeRecord<CrewMember>());
    for (const auto role : allCrewRoles())
        EXPECT_EQ(Codec::decode<CrewMember>(
                      support::withValue(crew, "role", "\"" + std::string(rawValue(role)) + "\""))
                      .role,
                  role);
    for (const std::string wrong : {"director", "Producer", "producer ", "", "制片人"})
        EXPECT_EQ(failureOf<CrewMember>(support::withValue(crew, "role", "\"" + wrong + "\"")),
                  "role: \"" + wrong + "\" is not one of the known texts");
    const std::string take = Codec::encode(support::completeRecord<VantryTake>());
    for (const std::string wrong : {"MOS", "wild", "room tone"})
        EXPECT_NE(failureOf<VantryTake>(support::withValue(take, "soundMode", "\"" + wrong + "\"")), "")
            << wrong;
    const std::string file = Codec::encode(support::completeRecord<RelatedFile>());
    for (const std::string wrong : {"File", "folders", "url"})
        EXPECT_NE(failureOf<RelatedFile>(support::withValue(file, "kind", "\"" + wrong + "\"")), "") << wrong;
}

TEST(IdentifierForm, IsReadInEitherCaseAndWrittenInCapitals) {
    const std::string json = Codec::encode(support::completeRecord<CastMember>());
    std::string small = membersOf(json)[2].value;
    ASSERT_EQ(membersOf(json)[2].key, "id");
    for (char& c : small)
        c = static_cast<char>(std::tolower(c));
    EXPECT_EQ(Codec::encode(Codec::decode<CastMember>(support::withValue(json, "id", small))), json);
    EXPECT_EQ(failureOf<CastMember>(support::withValue(json, "id", "\"5\"")), "id: \"5\" is no identifier");
}

TEST(SampleForm, IsThatOfTheEncoderToTheLastByte) {
    EXPECT_EQ(Codec::encode(support::sampleLibrary()), support::sampleFileBytes());
}

TEST(BufferForm, ReplacesWhatTheBufferHeld) {
    std::string buffer = "something else";
    Codec::encode(Library{}, buffer);
    EXPECT_EQ(buffer, R"({"format":"Vantry","projects":[],"version":1})");
    Codec::encode(support::completeLibrary(), buffer);
    EXPECT_EQ(buffer, Codec::encode(support::completeLibrary()));
}

}  // namespace
}  // namespace vantry
