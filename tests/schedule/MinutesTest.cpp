#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "Vantry/schedule/rules/ShootSchedule.h"
#include "tests/schedule/Records.h"

namespace vantry::test {
namespace {

TEST(MinuteNormalization, TakesTheSecondsOff) {
    struct Case {
        const char *zone, *clock, *minute;
    };
    const Case cases[] = {
        {"America/New_York", "2026-10-18 14:27:53", "2026-10-18 14:27"},
        {"America/New_York", "2026-10-18 14:27:00", "2026-10-18 14:27"},
        {"America/New_York", "2026-10-18 00:00:59", "2026-10-18 00:00"},
        {"America/New_York", "2026-03-08 03:00:01", "2026-03-08 03:00"},
        {"Asia/Kolkata", "2024-05-05 23:59:59", "2024-05-05 23:59"},
        {"Asia/Kathmandu", "2024-05-05 08:05:30", "2024-05-05 08:05"},
        {"Australia/Lord_Howe", "2023-10-01 02:30:59", "2023-10-01 02:30"},
    };
    for (const auto& c : cases) {
        const Calendar calendar = calendarOf(c.zone);
        const Moment minute = at(c.zone, c.minute);
        for (const double fraction : {0.0, 0.25, 0.999}) {
            const Moment moment{at(c.zone, c.clock).seconds + fraction};
            EXPECT_EQ(ShootSchedule::normalizedToMinute(moment, calendar), minute) << c.clock;
        }
        EXPECT_EQ(ShootSchedule::normalizedToMinute(minute, calendar), minute) << c.clock;
    }
}

TEST(MinuteNormalization, StaysInTheSecondOfTwoEqualHours) {
    const Calendar calendar = calendarOf("America/New_York");
    const Moment first = support::utc(2026, 11, 1, 5, 30);
    const Moment second = support::utc(2026, 11, 1, 6, 30);
    EXPECT_EQ(ShootSchedule::normalizedToMinute(Moment{first.seconds + 7}, calendar), first);
    EXPECT_EQ(ShootSchedule::normalizedToMinute(Moment{second.seconds + 7}, calendar), second);
}

TEST(MinuteNormalization, KeepsAMomentThatIsOnNoCalendar) {
    using Limits = std::numeric_limits<double>;
    const Calendar calendar = calendarOf("America/New_York");
    for (const double seconds : {1e300, -1e300, 1e15, -1e15, Limits::infinity(), -Limits::infinity()})
        EXPECT_EQ(ShootSchedule::normalizedToMinute(Moment{seconds}, calendar).seconds, seconds);
    EXPECT_TRUE(std::isnan(ShootSchedule::normalizedToMinute(Moment{Limits::quiet_NaN()}, calendar).seconds));
}

TEST(Duration, LiesBetweenAMinuteAndAWeek) {
    using Limits = std::numeric_limits<std::int64_t>;
    for (const std::int64_t minutes :
         {std::int64_t{1}, std::int64_t{2}, std::int64_t{30}, std::int64_t{10079}, std::int64_t{10080}})
        EXPECT_TRUE(ShootSchedule::isDuration(minutes)) << minutes;
    for (const std::int64_t minutes : {std::int64_t{0}, std::int64_t{-1}, std::int64_t{10081},
                                       std::int64_t{-10080}, Limits::min(), Limits::max()})
        EXPECT_FALSE(ShootSchedule::isDuration(minutes)) << minutes;
}

TEST(TypedMinutes, AreADecimalIntegerWithBlanksAroundItOrNot) {
    struct Case {
        const char* typed;
        std::int64_t minutes;
    };
    const Case cases[] = {
        {"0", 0},
        {"1", 1},
        {"30", 30},
        {"10080", 10080},
        {"10081", 10081},
        {"007", 7},
        {"+5", 5},
        {"-5", -5},
        {"-0", 0},
        {" 45", 45},
        {"45\t ", 45},
        {"\n45\r\n", 45},
        {"\v\f45", 45},
        {"\u00A045\u3000", 45},
        {"\u202845\u2029", 45},
        {" +45 ", 45},
        {"9223372036854775807", std::numeric_limits<std::int64_t>::max()},
        {"-9223372036854775808", std::numeric_limits<std::int64_t>::min()},
        {"000000000000000000000000000000000000012", 12},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ShootSchedule::typedMinutes(c.typed), c.minutes) << "\"" << c.typed << "\"";
}

TEST(TypedMinutes, AreNothingForAnythingElse) {
    const std::string_view cases[] = {
        "",
        " ",
        "\n",
        "word",
        "30 min",
        "3 0",
        "3\n0",
        "30.0",
        "30,5",
        "1e3",
        "0x1E",
        "1_000",
        "1,000",
        "+",
        "-",
        "+-5",
        "-+5",
        "++5",
        "--5",
        "+ 5",
        "- 5",
        "5+",
        "−5",
        "３０",
        "\u0663\u0660",
        "三十",
        "30分钟",
        "½",
        "30\u0301",
        "30\u200B",
        "9223372036854775808",
        "-9223372036854775809",
        "99999999999999999999999999",
        "inf",
        "nan",
        std::string_view("3\0000", 3),
        std::string_view("30\0", 3),
    };
    for (const auto typed : cases)
        EXPECT_FALSE(ShootSchedule::typedMinutes(typed)) << "\"" << typed << "\"";
}

TEST(TypedMinutes, ThatAreTooFewOrTooManyAreNoDuration) {
    const auto accepted = [](const char* typed) {
        const auto minutes = ShootSchedule::typedMinutes(typed);
        return minutes && ShootSchedule::isDuration(*minutes);
    };
    for (const auto* typed : {"1", "10080", " 10080\n", "+10080"})
        EXPECT_TRUE(accepted(typed)) << typed;
    for (const auto* typed : {"0", "10081", "-1", "word", "", "9223372036854775807"})
        EXPECT_FALSE(accepted(typed)) << typed;
}

}  // namespace
}  // namespace vantry::test
