#include <gtest/gtest.h>

#include "VantryCore/persistence/Codec.h"
#include "VantryCore/persistence/LibraryValidation.h"
#include "VantryCore/persistence/VantryError.h"
#include "tests/support/RandomRecords.h"
#include "tests/support/SampleLibrary.h"

namespace vantry {
namespace {

bool isUnreadable(std::string_view json) {
    try {
        (void)Codec::decode<Library>(json);
    } catch (const DecodingError&) {
        return true;
    }
    return false;
}

void expectUnreadableWhenCutAnywhere(const std::string& json, std::size_t step) {
    for (std::size_t length = 0; length < json.size(); length += step)
        ASSERT_TRUE(isUnreadable(std::string_view(json).substr(0, length))) << "cut to " << length;
}

TEST(DamagedBytes, AreUnreadableWhenCutAtAnyByte) {
    expectUnreadableWhenCutAnywhere(Codec::encode(support::completeLibrary()), 1);
    expectUnreadableWhenCutAnywhere(Codec::encode(support::smallSample(20'000)), 1);
}

TEST(DamagedBytes, AreUnreadableWhenTheWholeSampleIsCut) {
    expectUnreadableWhenCutAnywhere(support::sampleFileBytes(), 4099);
    const std::string& json = support::sampleFileBytes();
    for (std::size_t length = json.size() - 100; length < json.size(); ++length)
        ASSERT_TRUE(isUnreadable(std::string_view(json).substr(0, length))) << "cut to " << length;
}

TEST(DamagedBytes, AreUnreadableWhenTheEndIsFilledWithZeros) {
    const std::string json = Codec::encode(support::completeLibrary());
    for (std::size_t length = 0; length < json.size(); ++length) {
        std::string damaged = json;
        damaged.replace(length, json.size() - length, json.size() - length, '\0');
        ASSERT_TRUE(isUnreadable(damaged)) << "zeros from " << length;
    }
}

/// Reads what may be damaged: either it is refused in the known way, or it is a record like any other.
bool survives(const std::string& damaged) {
    try {
        const auto library = Codec::decode<Library>(damaged);
        const std::string json = Codec::encode(library);
        const auto again = Codec::decode<Library>(json);
        EXPECT_TRUE(again == library);
        EXPECT_EQ(Codec::encode(again), json);
        validate(library);
    } catch (const DecodingError&) {
        return false;
    } catch (const VantryError& failure) {
        EXPECT_EQ(failure.which(), VantryError::Case::invalidBackup);
        return false;
    }
    return true;
}

TEST(DamagedBytes, AreReadWholeOrRefusedAfterRandomChanges) {
    support::RandomRecords random(8);
    const std::string sources[] = {Codec::encode(support::completeLibrary()),
                                   Codec::encode(support::smallSample(20'000))};
    int readable = 0;
    int refused = 0;
    for (int round = 0; round < 6000; ++round) {
        std::string json = sources[round % 2];
        for (auto changes = random.number(1, 3); changes > 0; --changes) {
            const auto at =
                static_cast<std::size_t>(random.number(0, static_cast<std::int64_t>(json.size()) - 1));
            switch (random.number(0, 3)) {
            case 0:
                json[at] = static_cast<char>(json[at] ^ (1 << random.number(0, 7)));
                break;
            case 1:
                json[at] = static_cast<char>(random.number(0, 255));
                break;
            case 2:
                json.erase(at, static_cast<std::size_t>(random.number(1, 40)));
                break;
            default:
                json.insert(
                    at, json,
                    static_cast<std::size_t>(random.number(0, static_cast<std::int64_t>(json.size()) - 1)),
                    static_cast<std::size_t>(random.number(1, 60)));
            }
            if (json.empty())
                break;
        }
        (survives(json) ? readable : refused) += 1;
    }
    EXPECT_GT(readable, 200);
    EXPECT_GT(refused, 1000);
}

TEST(DamagedBytes, OfAnyKindAreNoReasonToCrash) {
    support::RandomRecords random(9);
    const std::string tokens[] = {"{",           "}",          "[",  "]",          ":",
                                  ",",           "\"",         "\\", "null",       "true",
                                  "-",           "1",          "e5", "\"format\"", "\"projects\"",
                                  "\"version\"", "\"Vantry\"", " ",  "\xC3",       "\\u"};
    for (int round = 0; round < 20000; ++round) {
        std::string json;
        for (auto left = random.number(0, 30); left > 0; --left)
            json += random.chance(0.9) ? random.oneOf(tokens)
                                       : std::string(1, static_cast<char>(random.number(0, 255)));
        ASSERT_TRUE(isUnreadable(json)) << json;
    }
}

TEST(DamagedBytes, MayBeFollowedByAnythingInMemory) {
    // What stands behind a text that is decoded in place is no part of it.
    const std::string json = Codec::encode(support::completeLibrary());
    for (const char behind : {'}', '"', ',', '\0', '\xFF', '7'}) {
        const std::string memory = json + std::string(readingPadding, behind);
        EXPECT_TRUE(decodePadded<Library>(std::string_view(memory).substr(0, json.size())) ==
                    support::completeLibrary());
        for (const std::size_t cut : {std::size_t{1}, std::size_t{2}, std::size_t{10}, json.size() / 2})
            EXPECT_THROW((void)decodePadded<Library>(std::string_view(memory).substr(0, json.size() - cut)),
                         DecodingError);
    }
}

}  // namespace
}  // namespace vantry
