#include <algorithm>
#include <functional>
#include <map>

#include <gtest/gtest.h>

#include "VantryCore/persistence/Codec.h"
#include "VantryCore/persistence/VantryError.h"
#include "tests/support/JsonText.h"
#include "tests/support/RecordTypes.h"
#include "tests/support/SampleLibrary.h"

namespace vantry {
namespace {

using support::membersOf;

enum class Kind { identifier, text, texts, truth, integer, number, list, word, bytes, record };

struct Key {
    const char* name;
    Kind kind;
    bool optional = false;
};

/// The keys of each record's JSON form, in the order of its fields.
const std::map<std::string, std::vector<Key>> tables{
    {"Library", {{"format", Kind::text}, {"version", Kind::integer}, {"projects", Kind::list}}},
    {"Project",
     {{"id", Kind::identifier},
      {"conflictKey", Kind::text, true},
      {"title", Kind::text},
      {"director", Kind::text},
      {"crewMembers", Kind::list, true},
      {"castMembers", Kind::list, true},
      {"callSheetRecords", Kind::list, true},
      {"relatedFileRecords", Kind::list, true},
      {"notes", Kind::text},
      {"defaults", Kind::record},
      {"createdAt", Kind::number},
      {"acts", Kind::list}}},
    {"Act",
     {{"id", Kind::identifier},
      {"conflictKey", Kind::text, true},
      {"title", Kind::text},
      {"shots", Kind::list}}},
    {"Shot",
     {{"id", Kind::identifier},
      {"conflictKey", Kind::text, true},
      {"code", Kind::text},
      {"title", Kind::text},
      {"description", Kind::text},
      {"framing", Kind::text},
      {"movement", Kind::text},
      {"soundDescription", Kind::text},
      {"soundMode", Kind::word},
      {"parameters", Kind::record},
      {"imageKey", Kind::text, true},
      {"strokes", Kind::list},
      {"scheduledAt", Kind::number, true},
      {"durationMinutes", Kind::integer},
      {"cancelled", Kind::truth},
      {"takes", Kind::list}}},
    {"VantryTake",
     {{"id", Kind::identifier},
      {"conflictKey", Kind::text, true},
      {"number", Kind::integer},
      {"cameraNumber", Kind::integer, true},
      {"soundNumber", Kind::integer, true},
      {"soundMode", Kind::word},
      {"cameraFile", Kind::text},
      {"mixerFile", Kind::text},
      {"notes", Kind::text},
      {"result", Kind::word},
      {"stars", Kind::integer},
      {"parameters", Kind::record},
      {"createdAt", Kind::number}}},
    {"Parameters", {{"values", Kind::texts}}},
    {"Stroke", {{"id", Kind::identifier}, {"points", Kind::list}}},
    {"Point", {{"x", Kind::number}, {"y", Kind::number}}},
    {"CrewMember",
     {{"id", Kind::identifier}, {"role", Kind::word}, {"customRole", Kind::text}, {"name", Kind::text}}},
    {"CastMember", {{"id", Kind::identifier}, {"character", Kind::text}, {"actor", Kind::text}}},
    {"CallSheet",
     {{"id", Kind::identifier},
      {"date", Kind::number},
      {"timeZoneID", Kind::text},
      {"fields", Kind::texts},
      {"people", Kind::list}}},
    {"CallSheetPerson",
     {{"id", Kind::identifier},
      {"sourceID", Kind::identifier, true},
      {"isCast", Kind::truth},
      {"role", Kind::text},
      {"name", Kind::text},
      {"callTime", Kind::text},
      {"phone", Kind::text},
      {"makeup", Kind::text},
      {"wardrobe", Kind::text},
      {"ready", Kind::text},
      {"notes", Kind::text}}},
    {"RelatedFile",
     {{"id", Kind::identifier},
      {"kind", Kind::word},
      {"name", Kind::text},
      {"location", Kind::text},
      {"bookmark", Kind::bytes, true},
      {"notes", Kind::text}}},
};

/// JSON values of every type, and for each which fields take it.
struct Candidate {
    const char* json;
    std::vector<Kind> takenBy;
};

const Candidate candidates[] = {
    {"null", {}},
    {"true", {Kind::truth}},
    {"12", {Kind::integer, Kind::number}},
    {"1.5", {Kind::number}},
    {"\"no such text\"", {Kind::text}},
    {"[]", {Kind::list}},
    {"{}", {Kind::texts}},
    {"[5]", {}},
    {"[null]", {}},
    {"{\"k\":5}", {}},
    {"{\"k\":null}", {}},
};

bool takes(const Key& key, const Candidate& candidate) {
    if (key.optional && candidate.json == std::string("null"))
        return true;
    return std::count(candidate.takenBy.begin(), candidate.takenBy.end(), key.kind) > 0;
}

class RecordForm : public ::testing::TestWithParam<support::RecordType> {
protected:
    static const std::vector<Key>& table() { return tables.at(GetParam().name); }
    static std::string complete() { return GetParam().completeForm(); }
    static std::string rewritten(std::string_view json) { return GetParam().rewritten(json); }
    static std::string failureOf(std::string_view json) {
        try {
            (void)rewritten(json);
        } catch (const DecodingError& failure) {
            return failure.what();
        }
        return "";
    }
};

TEST_P(RecordForm, HasExactlyItsKeys) {
    std::vector<std::string> expected;
    for (const auto& key : table())
        expected.emplace_back(key.name);
    EXPECT_EQ(GetParam().fieldNames(), expected);

    std::sort(expected.begin(), expected.end());
    std::vector<std::string> written;
    for (const auto& member : membersOf(complete()))
        written.push_back(member.key);
    EXPECT_EQ(written, expected);
}

TEST_P(RecordForm, ReadsBackWhatItWrites) {
    for (std::uint64_t seed = 0; seed < 300; ++seed) {
        const std::string json = GetParam().randomForm(seed);
        ASSERT_TRUE(GetParam().equalsItself(seed)) << seed << "\n" << json;
        ASSERT_EQ(rewritten(json), json) << seed;
        ASSERT_EQ(GetParam().randomForm(seed), json) << seed;
    }
}

void expectSorted(std::string_view json) {
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
}

TEST_P(RecordForm, IsCompactAndSortedAtEveryDepth) {
    for (std::uint64_t seed = 0; seed < 60; ++seed) {
        const std::string json = GetParam().randomForm(seed);
        expectSorted(json);
        ASSERT_EQ(support::restyled(json, {}), json) << "blanks between the tokens";
        ASSERT_EQ(json.find_first_of("\n\r\t"), std::string::npos);
        ASSERT_EQ(json.back(), '}');
    }
}

TEST_P(RecordForm, ReadsAnyLayoutAndAnyOrderOfKeys) {
    for (std::uint64_t seed = 0; seed < 60; ++seed) {
        const std::string pretty = support::prettyPrinted(GetParam().randomForm(seed));
        ASSERT_TRUE(GetParam().isFormOf(pretty, seed)) << seed;
    }
}

TEST_P(RecordForm, ChangesItsBytesWhenAnySingleFieldChanges) {
    for (std::uint64_t seed = 0; seed < 40; ++seed) {
        const std::string json = GetParam().randomForm(seed);
        for (const auto& field : GetParam().changedFields(seed)) {
            ASSERT_NE(field.form, json) << field.name << " seed " << seed;
            ASSERT_TRUE(field.readsBack) << field.name << " seed " << seed;
        }
    }
}

TEST_P(RecordForm, RequiresEveryKeyThatIsNotOptional) {
    const std::string json = complete();
    for (const auto& key : table()) {
        const std::string without = support::withoutKey(json, key.name);
        const std::string null = support::withValue(json, key.name, "null");
        if (!key.optional) {
            EXPECT_EQ(failureOf(without), std::string("missing key \"") + key.name + "\"");
            EXPECT_NE(failureOf(null), "") << key.name;
            continue;
        }
        EXPECT_EQ(rewritten(without), without) << key.name;
        EXPECT_EQ(rewritten(null), without) << key.name;
        EXPECT_FALSE(GetParam().equal(without, json)) << key.name;
    }
}

TEST_P(RecordForm, RefusesAValueOfTheWrongTypeUnderEachKey) {
    const std::string json = complete();
    for (const auto& key : table())
        for (const auto& candidate : candidates) {
            const std::string failure = failureOf(support::withValue(json, key.name, candidate.json));
            EXPECT_EQ(failure.empty(), takes(key, candidate))
                << key.name << ": " << candidate.json << " " << failure;
            EXPECT_TRUE(failure.empty() || failure.starts_with(key.name)) << failure;
        }
}

TEST_P(RecordForm, IsAnObjectAndNothingElse) {
    for (const std::string value : {"null", "true", "5", "\"x\"", "[]", "{}", "[{}]"})
        EXPECT_NE(failureOf(value), "") << value;
}

TEST_P(RecordForm, IgnoresKeysItDoesNotKnowAndLosesThem) {
    auto members = membersOf(complete());
    members.insert(members.begin(), {"Unknown", "{\"deep\":[1,2,{\"x\":null}]}"});
    members.push_back({"zz", "\"id\""});
    members.push_back({"ID", "5"});
    members.push_back({"", "[]"});
    EXPECT_EQ(rewritten(support::objectOf(members)), complete());
}

TEST_P(RecordForm, RefusesAKeyThatStandsTwice) {
    for (const auto& member : membersOf(complete())) {
        auto twice = membersOf(complete());
        twice.push_back(member);
        EXPECT_EQ(failureOf(support::objectOf(twice)), "the key \"" + member.key + "\" stands twice");
    }
}

INSTANTIATE_TEST_SUITE_P(Of, RecordForm, ::testing::ValuesIn(support::recordTypes()),
                         [](const auto& info) { return info.param.name; });

template <class T>
std::string failureOf(const std::string& json) {
    try {
        (void)Codec::decode<T>(json);
    } catch (const DecodingError& failure) {
        return failure.what();
    }
    return "";
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
