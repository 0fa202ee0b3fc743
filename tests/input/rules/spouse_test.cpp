#include "input/rules/spouse.h"

#include <gtest/gtest.h>

#include "tests/support/told.h"

namespace kelvar::test {
namespace {

using namespace std::chrono_literals;

const Date today = 2026y / 7 / 15;

TEST(Spouse, IsOf35AndMoreThanTenYearsYounger) {
    const std::string too_young =
        "You can select Joint Life Expectancy only if your spouse is at least 35 years old, and is at "
        "least 10 years younger than you! [oplifeexp_0]";
    const std::string too_old =
        "You cannot select Joint Life Expectancy. It is an option only when your spouse is more than "
        "10 years younger than you. [oplifeexp_0]";
    struct Case {
        const char* name;
        const char* mask;
        int participant_age, spouse_age;
        std::string message;
    };
    const Case cases[] = {{"11 years", "07/14/1977", 60, 49, ""},
                          {"10 years", "07/14/1976", 60, 50, too_old},
                          {"50 today, counted as 49", "07/15/1976", 60, 49, ""},
                          {"100 years apart from today", "01/01/1926", 60, 100, too_old},
                          {"35 since yesterday", "07/14/1991", 60, 35, ""},
                          {"35 today, counted as 34", "07/15/1991", 60, 34, too_young},
                          {"34 and not 10 years younger", "07/15/1991", 40, 34, too_young},
                          {"35 and 10 years younger", "07/14/1991", 45, 35, too_old},
                          {"35 and 11 years younger", "07/14/1991", 46, 35, ""},
                          {"year of two digits", "06/15/80__", 60, 46, ""}};
    for (const Case& c : cases) {
        const SpouseCheck check = check_spouse(c.mask, c.participant_age, today);
        EXPECT_EQ(told(check.wrong), c.message) << c.name << ": " << c.mask;
        EXPECT_TRUE(check.birth_date.has_value()) << c.name << ": " << c.mask;
        EXPECT_EQ(check.age, c.spouse_age) << c.name << ": " << c.mask;
    }
    for (const char* mask :
         {"12/31/1925", "01/01/2026", "02/30/1980", "06/15/198_", "06/1_/1980", "__/__/____"}) {
        const SpouseCheck check = check_spouse(mask, 60, today);
        EXPECT_EQ(told(check.wrong), "Please enter the birthdate of your spouse. [mskbenebirth]")
            << mask;
        EXPECT_FALSE(check.birth_date.has_value()) << mask;
    }
}

TEST(Spouse, IsAskedForUpToAge90AtTheNearestBirthday) {
    EXPECT_EQ(told(check_joint_life(1936y / 1 / 1, today)), accepted) << "90 and a half";
    EXPECT_EQ(told(check_joint_life(1935y / 12 / 31, today)),
              "Join Life Expectancy is not available when either you or your spouse is older than 90 "
              "years! [oplifeexp_0]")
        << "a month more";
}

}  // namespace
}  // namespace kelvar::test
