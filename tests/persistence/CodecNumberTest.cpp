#include <bit>
#include <charconv>
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "VantryCore/persistence/Codec.h"
#include "VantryCore/persistence/VantryError.h"
#include "tests/support/JsonText.h"
#include "tests/support/RandomRecords.h"
#include "tests/support/SampleLibrary.h"

namespace vantry {
namespace {

using Limits = std::numeric_limits<double>;

std::string written(double value) {
    return support::membersOf(Codec::encode(Point{value, 0})).front().value;
}

double readNumber(const std::string& json) {
    return Codec::decode<Point>("{\"x\":" + json + ",\"y\":0}").x;
}

std::int64_t readInteger(const std::string& json) {
    static const std::string take = Codec::encode(support::completeRecord<VantryTake>());
    return Codec::decode<VantryTake>(support::withValue(take, "number", json)).number;
}

std::string failureOf(const std::function<void()>& work) {
    try {
        work();
    } catch (const DecodingError& failure) {
        return failure.what();
    }
    return "";
}

TEST(NumberForm, IsTheShortestThatReadsBack) {
    struct Case {
        double value;
        const char* text;
    };
    const Case cases[] = {
        {0, "0"},
        {-0.0, "0"},
        {1, "1"},
        {-1, "-1"},
        {5.0, "5"},
        {0.1, "0.1"},
        {0.1 + 0.2, "0.30000000000000004"},
        {-0.25, "-0.25"},
        {1.5, "1.5"},
        {100000, "100000"},
        {700000000, "700000000"},
        {700000000.25, "700000000.25"},
        {710105154.948156, "710105154.948156"},
        {999999999999999, "999999999999999"},
        {-999999999999999, "-999999999999999"},
        {999999999999999.9, "999999999999999.9"},
        {1e15, "1e+15"},
        {-1e15, "-1e+15"},
        {1234567890123456, "1.234567890123456e+15"},
        {9007199254740993.0, "9.007199254740992e+15"},
        {1e16, "1e+16"},
        {1e22, "1e+22"},
        {1e100, "1e+100"},
        {0.001, "0.001"},
        {0.0001, "0.0001"},
        {0.00001, "0.00001"},
        {1.5e-5, "0.000015"},
        {9.9e-6, "9.9e-06"},
        {1e-6, "1e-06"},
        {1e-100, "1e-100"},
        {5e-324, "5e-324"},
        {2.2250738585072014e-308, "2.2250738585072014e-308"},
        {Limits::max(), "1.7976931348623157e+308"},
        {-Limits::max(), "-1.7976931348623157e+308"},
        {1.0 / 3, "0.3333333333333333"},
        {9007199254740992, "9.007199254740992e+15"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(written(c.value), c.text);
        EXPECT_EQ(readNumber(c.text), c.value) << c.text;
    }
}

TEST(NumberForm, ReadsBackToTheSameBits) {
    support::RandomRecords random(7);
    for (int round = 0; round < 100'000; ++round) {
        const double value = random.finite();
        const std::string text = written(value);
        const double again = readNumber(text);
        ASSERT_EQ(again, value) << text;
        if (value != 0) {
            ASSERT_EQ(std::bit_cast<std::uint64_t>(again), std::bit_cast<std::uint64_t>(value)) << text;
        }
        // No shorter than the shortest scientific form in digits.
        char shortest[64];
        const auto end =
            std::to_chars(shortest, shortest + sizeof shortest, value, std::chars_format::scientific).ptr;
        const auto digits = [](std::string_view number) {
            std::string only;
            for (const char c : number.substr(0, number.find('e')))
                if (c >= '0' && c <= '9')
                    only += c;
            only.erase(0, only.find_first_not_of('0'));
            while (!only.empty() && only.back() == '0')
                only.pop_back();
            return only;
        };
        if (std::abs(value) >= 1e15 || std::trunc(value) != value) {
            ASSERT_EQ(digits(text),
                      digits(std::string_view(shortest, static_cast<std::size_t>(end - shortest))))
                << text;
        }
    }
}

TEST(NumberForm, IsReadInEveryNotationOfJSON) {
    struct Case {
        const char* text;
        double value;
    };
    const Case cases[] = {
        {"5.0", 5},
        {"1e3", 1000},
        {"1E3", 1000},
        {"1.5E+2", 150},
        {"1.5e-2", 0.015},
        {"-0", 0},
        {"-0.0", 0},
        {"0e5", 0},
        {"700000000.50", 700000000.5},
        {"0.1000000000000000055511151231257827", 0.1},
        {"123456789012345678", 123456789012345678.0},
        {"9223372036854775807", 9223372036854775807.0},
        {"9223372036854775808", 9223372036854775808.0},
        {"18446744073709551615", 18446744073709551615.0},
        {"4.9e-324", 5e-324},
        {"2e-400", 0},
        {"1.7976931348623157e308", Limits::max()},
        {"1.7976931348623158e308", Limits::max()},
        {"0.00000000000000000000000000000000000001", 1e-38},
    };
    for (const auto& c : cases)
        EXPECT_EQ(readNumber(c.text), c.value) << c.text;
}

TEST(NumberForm, IsNotReadInAnyOtherNotation) {
    for (const std::string text :
         {"NaN", "Infinity", "-Infinity", "nan", "inf", "+1",    ".5",    "1.",     "01",      "-", "1e",
          "1e+", "0x10",     "1_000",     "1,5", "--1", "1e5.5", "1e999", "-1e999", "1.8e308", "１"})
        EXPECT_NE(failureOf([&] { (void)readNumber(text); }), "") << text;
}

TEST(NumberForm, OfAWholeNumberBeyondSixtyFourBitsIsRefusedAndNeverMisread) {
    for (const std::string text : {"18446744073709551616", "-9223372036854775809", "100000000000000000000"})
        EXPECT_NE(failureOf([&] { (void)readNumber(text); }), "") << text;
    EXPECT_EQ(readNumber("1e20"), 1e20);
    EXPECT_EQ(readNumber("18446744073709551616.0"), 18446744073709551616.0);
}

TEST(NumberForm, DoesNotExistForWhatIsNotFinite) {
    for (const double value : {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN()}) {
        EXPECT_THROW((void)Codec::encode(Point{value, 0}), std::domain_error);
        Project project = Project::make("");
        project.createdAt.seconds = value;
        EXPECT_THROW((void)Codec::encode(project), std::domain_error);
        CallSheet sheet;
        sheet.date.seconds = value;
        EXPECT_THROW((void)Codec::encode(sheet), std::domain_error);
        Shot shot;
        shot.scheduledAt = Moment{value};
        EXPECT_THROW((void)Codec::encode(shot), std::domain_error);
    }
}

TEST(IntegerForm, IsDecimalUpToBothEnds) {
    constexpr auto least = std::numeric_limits<std::int64_t>::min();
    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    for (const std::int64_t value :
         {std::int64_t{0}, std::int64_t{-1}, std::int64_t{9007199254740993}, least, most}) {
        auto take = support::completeRecord<VantryTake>();
        take.number = value;
        const std::string json = Codec::encode(take);
        EXPECT_NE(json.find("\"number\":" + std::to_string(value) + ","), std::string::npos) << value;
        EXPECT_EQ(Codec::decode<VantryTake>(json).number, value);
    }
}

TEST(IntegerForm, IsReadWhenItIsWrittenAsAWholeNumber) {
    struct Case {
        const char* text;
        std::int64_t value;
    };
    const Case cases[] = {
        {"3.0", 3},
        {"1e2", 100},
        {"1.5e1", 15},
        {"-0.0", 0},
        {"-0", 0},
        {"-5.00", -5},
        {"9007199254740992.0", 9007199254740992},
        {"9223372036854774784.0", 9223372036854774784},
        {"-9223372036854775808.0", std::numeric_limits<std::int64_t>::min()},
        {"-9223372036854775808", std::numeric_limits<std::int64_t>::min()},
        {"9223372036854775807", std::numeric_limits<std::int64_t>::max()},
    };
    for (const auto& c : cases)
        EXPECT_EQ(readInteger(c.text), c.value) << c.text;
}

TEST(IntegerForm, IsRefusedAsAFractionOrBeyondItsEnds) {
    for (const std::string text : {"1.5", "0.1", "-2.5", "1e-1", "5e-324", "2.0000000000000004"})
        EXPECT_EQ(failureOf([&] { (void)readInteger(text); }),
                  "number: expected an integer, found a fraction")
            << text;
    for (const std::string text : {"9223372036854775808", "18446744073709551615", "9223372036854775808.0",
                                   "1e19", "1e300", "-9223372036854777856.0", "-1e19"})
        EXPECT_EQ(failureOf([&] { (void)readInteger(text); }), "number: the integer is beyond 64 bits")
            << text;
    for (const std::string text : {"18446744073709551616", "-9223372036854775809", "100000000000000000000"})
        EXPECT_NE(failureOf([&] { (void)readInteger(text); }), "") << text;
}

}  // namespace
}  // namespace vantry
