#include "VantryCore/records/Moment.h"

#include <ctime>
#include <limits>

#include <gtest/gtest.h>

namespace vantry {
namespace {

TEST(Moment, CountsFromTheFirstOfJanuary2001) {
    std::tm reference{};
    reference.tm_year = 101;
    reference.tm_mday = 1;
    EXPECT_EQ(::timegm(&reference), unixSecondsOfReferenceDate);
}

TEST(Moment, IsThePresentMomentByTheSystemClock) {
    const double before = static_cast<double>(std::time(nullptr) - unixSecondsOfReferenceDate);
    const double now = Moment::now().seconds;
    const double after = static_cast<double>(std::time(nullptr) - unixSecondsOfReferenceDate);
    EXPECT_GE(now, before - 1);
    EXPECT_LE(now, after + 1);
}

TEST(Moment, KnowsWhetherItIsFinite) {
    using Limits = std::numeric_limits<double>;
    EXPECT_TRUE(Moment{0}.isFinite());
    EXPECT_TRUE(Moment{Limits::max()}.isFinite());
    EXPECT_TRUE(Moment{Limits::denorm_min()}.isFinite());
    EXPECT_FALSE(Moment{Limits::infinity()}.isFinite());
    EXPECT_FALSE(Moment{-Limits::infinity()}.isFinite());
    EXPECT_FALSE(Moment{Limits::quiet_NaN()}.isFinite());
}

TEST(Moment, ComparesByItsSeconds) {
    EXPECT_EQ(Moment{1.5}, Moment{1.5});
    EXPECT_NE(Moment{1.5}, Moment{1.25});
    EXPECT_LT(Moment{-1}, Moment{0});
}

}  // namespace
}  // namespace vantry
