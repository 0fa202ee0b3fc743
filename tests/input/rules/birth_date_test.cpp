#include "input/rules/birth_date.h"

#include <gtest/gtest.h>

#include "tests/support/told.h"

namespace kelvar::test {
namespace {

using namespace std::chrono_literals;

const Date today = 2026y / 7 / 15;

TEST(BirthDate, IsReadFromTheMask) {
    const std::pair<const char*, Date> dates[] = {{"06/15/1950", 1950y / 6 / 15},
                                                  {"01/15/45__", 1945y / 1 / 15},
                                                  {"12/31/99__", 1999y / 12 / 31},
                                                  {"02/29/2000", 2000y / 2 / 29}};
    for (const auto& [mask, expected] : dates) {
        EXPECT_EQ(read_masked_date(mask), expected) << mask;
    }
    for (const char* mask :
         {"02/29/1999", "02/29/00__", "02/30/1950", "06/31/1950", "00/15/1950", "13/15/1950",
          "06/00/1950", "01/15/194_", "01/15/19_5", "01/15/_945", "01/15/4___", "01/15/____",
          "__/15/1945", "01/__/1945", "1_/15/1945", "_1/15/1945", "01/1_/1945", "01/_5/1945",
          "ab/15/1945", "01/+5/1945", "01/ 5/1945", "01/15/19",   "__/__/____", ""}) {
        EXPECT_EQ(read_masked_date(mask), std::nullopt) << mask;
    }
}

TEST(BirthDate, IsAcceptedFromAge16To100) {
    const char* const invalid = "Invalid birth date. [mskbirth]";
    const char* const too_young = "The current age should be at least 16 years! [mskbirth]";
    const char* const too_old = "The current age should not axceed 100 years old. [mskbirth]";
    constexpr int any = -1;
    struct Case {
        const char* name;
        const char* mask;
        int age;
        const char* message;
    };
    const Case cases[] = {{"birthday today", "07/15/1950", 75, ""},
                          {"birthday yesterday", "07/14/1950", 76, ""},
                          {"two digits always in the 1900s", "07/14/26__", 100, ""},
                          {"16 since yesterday", "07/14/2010", 16, ""},
                          {"16 today, counted as 15", "07/15/2010", 15, too_young},
                          {"101 years apart, still 100", "07/15/1925", 100, ""},
                          {"101", "07/14/1925", 101, too_old},
                          {"102 years apart, still 101", "07/15/1924", 101, too_old},
                          {"102", "07/14/1924", any, invalid},
                          {"0 years apart", "01/01/2026", any, invalid},
                          {"next year", "01/01/2027", any, invalid},
                          {"no date", "02/30/1950", any, invalid}};
    for (const Case& c : cases) {
        const BirthCheck check = check_birth(c.mask, today);
        EXPECT_EQ(told(check.wrong), c.message) << c.name << ": " << c.mask;
        EXPECT_EQ(check.date, read_masked_date(c.mask)) << c.name << ": " << c.mask;
        EXPECT_TRUE(c.age == any || c.age == check.age)
            << c.name << ": " << c.mask << " is " << c.age << ", got " << check.age;
    }
}

}  // namespace
}  // namespace kelvar::test
