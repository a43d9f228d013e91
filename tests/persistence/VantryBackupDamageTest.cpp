#include <string>

#include <gtest/gtest.h>

#include "VantryCore/persistence/VantryBackup.h"
#include "VantryCore/persistence/VantryError.h"
#include "tests/support/JsonText.h"
#include "tests/support/RandomRecords.h"
#include "tests/support/SampleLibrary.h"

namespace vantry {
namespace {

std::string smallBackup() {
    Library library = support::completeLibrary();
    const Bytes image{1, 2, 3, 255};
    library.projects[0].edit().acts[0].edit().shots[0].edit().imageKey = Text(Codec::hash(image));
    return VantryBackup::encode({library, {{Codec::hash(image), image}}});
}

enum class Outcome { good, notDecoded, refused };

/// Reads the file. Nothing but its own errors may come out.
Outcome outcomeOf(std::string_view file) {
    try {
        (void)VantryBackup::decode(file);
        return Outcome::good;
    } catch (const DecodingError&) {
        return Outcome::notDecoded;
    } catch (const VantryError&) {
        return Outcome::refused;
    }
}

TEST(DamagedBackup, CutOffAnywhereIsNotDecoded) {
    const std::string file = smallBackup();
    ASSERT_EQ(outcomeOf(file), Outcome::good);
    for (std::size_t length = 0; length < file.size(); ++length)
        ASSERT_EQ(outcomeOf(std::string_view(file).substr(0, length)), Outcome::notDecoded) << length;
}

TEST(DamagedBackup, WithOneBitFlippedFailsOrSaysSomethingElse) {
    const std::string file = smallBackup();
    const VantryBackup whole = VantryBackup::decode(file);
    int counts[3] = {0, 0, 0};
    for (std::size_t at = 0; at < file.size(); ++at)
        for (int bit = 0; bit < 8; ++bit) {
            std::string damaged = file;
            damaged[at] = static_cast<char>(damaged[at] ^ (1 << bit));
            const Outcome outcome = outcomeOf(damaged);
            counts[static_cast<int>(outcome)] += 1;
            if (outcome == Outcome::good) {
                ASSERT_TRUE(VantryBackup::decode(damaged).media == whole.media) << at << " " << bit;
            }
        }
    EXPECT_GT(counts[0], 100);
    EXPECT_GT(counts[1], 1000);
    EXPECT_GT(counts[2], 100);
}

TEST(DamagedBackup, WithARenamedKeyIsNotDecoded) {
    const std::string file = smallBackup();
    for (const auto& member : support::membersOf(file)) {
        auto members = support::membersOf(file);
        for (auto& other : members)
            if (other.key == member.key)
                other.key += "x";
        EXPECT_EQ(outcomeOf(support::objectOf(members)), Outcome::notDecoded) << member.key;
    }
}

TEST(DamagedBackup, WithKeysThatNobodyKnowsIsReadAllTheSame) {
    auto members = support::membersOf(smallBackup());
    members.push_back({"Format", "[1e300]"});
    members.insert(members.begin(), {"", "null"});
    EXPECT_EQ(outcomeOf(support::objectOf(members)), Outcome::good);
}

TEST(DamagedBackup, WithAKeyTwiceIsNotDecoded) {
    const std::string file = smallBackup();
    for (const auto& member : support::membersOf(file)) {
        auto members = support::membersOf(file);
        members.push_back(member);
        EXPECT_EQ(outcomeOf(support::objectOf(members)), Outcome::notDecoded) << member.key;
    }
    for (const char* table : {"media", "checksums"})
        EXPECT_EQ(outcomeOf(support::withValue(file, table, R"({"a":"","b":"","a":""})")),
                  Outcome::notDecoded);
    EXPECT_EQ(outcomeOf(R"({"x":{"a":1,"a":2},)" + file.substr(1)), Outcome::notDecoded);
}

TEST(DamagedBackup, WithMediaThatIsNotStrictBase64IsNotDecoded) {
    const std::string file = smallBackup();
    for (const char* text : {R"("QQ")", R"("QQ=")", R"("QQ==\n")", R"("Q Q==")", R"(" QQ==")", R"("QQ== ")",
                             R"("QQ===")", R"("=QQ=")", R"("QQ==QQ==")", R"("Q-_=")", R"("====")",
                             R"("Q\u0000==")", R"("é===")", "1", "null", "[81]", "{}"})
        EXPECT_EQ(outcomeOf(support::withValue(file, "media", std::string(R"({"a":)") + text + "}")),
                  Outcome::notDecoded)
            << text;
    for (const char* text : {R"("")", R"("QQ==")", R"("Q\u0051==")"}) {
        // Read, and then the image that a shot names is missing.
        EXPECT_EQ(outcomeOf(support::withValue(file, "media", std::string(R"({"a":)") + text + "}")),
                  Outcome::refused)
            << text;
    }
    EXPECT_EQ(outcomeOf(support::withValue(file, "checksums", R"({"a":1})")), Outcome::notDecoded);
    EXPECT_EQ(outcomeOf(support::withValue(file, "checksums", "[]")), Outcome::notDecoded);
}

TEST(DamagedBackup, NestedTooDeepIsNotDecoded) {
    for (const std::size_t depth : {std::size_t{64}, std::size_t{65}, std::size_t{1'000'000}}) {
        EXPECT_EQ(outcomeOf(R"({"x":)" + std::string(depth, '[') + std::string(depth, ']') + "," +
                            smallBackup().substr(1)),
                  Outcome::notDecoded);
        EXPECT_EQ(outcomeOf(std::string(depth, '[')), Outcome::notDecoded);
    }
    EXPECT_EQ(
        outcomeOf(R"({"x":)" + std::string(63, '[') + std::string(63, ']') + "," + smallBackup().substr(1)),
        Outcome::good);
}

TEST(DamagedBackup, WithHugeNumbersFailsWithItsError) {
    const std::string file = smallBackup();
    for (const char* number : {"1e400", "-1e400", "1e999999999", "9223372036854775808", "1e19"})
        EXPECT_EQ(outcomeOf(support::withValue(file, "version", number)), Outcome::notDecoded) << number;
    EXPECT_EQ(outcomeOf(support::withValue(file, "version", std::string(100'000, '9'))), Outcome::notDecoded);
    EXPECT_EQ(outcomeOf(support::withValue(file, "version", "9223372036854775807")), Outcome::refused);
    EXPECT_EQ(outcomeOf(support::withValue(file, "version", "1e18")), Outcome::refused);
}

TEST(DamagedBackup, WithAMillionEmptyProjectsFailsWithItsError) {
    std::string projects = "[";
    for (int i = 0; i < 1'000'000; ++i)
        projects += i == 0 ? "{}" : ",{}";
    projects += "]";
    const std::string file = smallBackup();
    const std::string library = R"({"format":"Vantry","projects":)" + projects + R"(,"version":1})";
    EXPECT_EQ(outcomeOf(support::withValue(file, "library", library)), Outcome::notDecoded);
    EXPECT_EQ(outcomeOf(R"({"x":)" + projects + "," + file.substr(1)), Outcome::good);
}

TEST(DamagedBackup, WithMoreProjectsThanAnybodyHasIsRefused) {
    const std::string project = Codec::encode(*support::libraryTitled("").projects[0]);
    std::string projects = "[" + project;
    for (int i = 1; i < 20'000; ++i)
        projects += "," + project;
    const std::string library = R"({"format":"Vantry","projects":)" + projects + R"(],"version":1})";
    EXPECT_EQ(outcomeOf(support::withValue(smallBackup(), "library", library)), Outcome::refused);
}

TEST(DamagedBackup, OfAnyKindIsNoReasonToCrash) {
    support::RandomRecords random(5);
    const std::string file = smallBackup();
    int refused = 0;
    for (int round = 0; round < 4000; ++round) {
        std::string damaged = file;
        for (auto faults = random.number(1, 4); faults > 0; --faults) {
            const auto at =
                static_cast<std::size_t>(random.number(0, static_cast<std::int64_t>(damaged.size())));
            const auto count = static_cast<std::size_t>(random.number(1, 50));
            if (random.chance(0.5))
                damaged.erase(at, count);
            else
                damaged.insert(at, file, count * 7, count);
        }
        refused += outcomeOf(damaged) == Outcome::good ? 0 : 1;
    }
    EXPECT_GT(refused, 3000);
}

}  // namespace
}  // namespace vantry
