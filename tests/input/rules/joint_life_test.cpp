#include "input/rules/joint_life.h"

#include <gtest/gtest.h>

#include "tests/support/told.h"

namespace kelvar::test {
namespace {

using namespace std::chrono_literals;

const Date today = 2026y / 7 / 15;

TEST(JointLife, IsOfferedUpToAge90AtTheNearestBirthday) {
    EXPECT_EQ(told(check_joint_life(1936y / 1 / 1, today)), accepted) << "90 and a half";
    EXPECT_EQ(told(check_joint_life(1935y / 12 / 31, today)),
              "Join Life Expectancy is not available when either you or your spouse is older than 90 "
              "years! [oplifeexp_0]")
        << "a month more";
}

}  // namespace
}  // namespace kelvar::test
