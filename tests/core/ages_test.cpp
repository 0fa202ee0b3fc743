#include "core/ages.h"

#include <gtest/gtest.h>

#include <array>

namespace kelvar::test {
namespace {

using namespace std::chrono_literals;

TEST(Ages, DifferInWhenTheBirthdayCounts) {
    using AllAges = std::array<int, 4>;  // on the day, in its month, at a payment, nearest birthday
    struct Case {
        const char* name;
        Date birth, day;
        AllAges expected;
    };
    const Case cases[] = {
        {"month before", 1950y / 6 / 15, 2020y / 5 / 31, {69, 69, 69, 70}},
        {"day before", 1950y / 6 / 15, 2020y / 6 / 14, {69, 70, 69, 70}},
        {"birthday", 1950y / 6 / 15, 2020y / 6 / 15, {69, 70, 69, 70}},
        {"day after", 1950y / 6 / 15, 2020y / 6 / 16, {70, 70, 69, 70}},
        {"month after", 1950y / 6 / 15, 2020y / 7 / 1, {70, 70, 70, 70}},
        {"birthday on the first", 1950y / 6 / 1, 2020y / 6 / 1, {69, 70, 69, 70}},
        {"leap day, end of a common February", 2000y / 2 / 29, 2025y / 2 / 28, {24, 25, 24, 25}},
        {"leap day, 1 March", 2000y / 2 / 29, 2025y / 3 / 1, {25, 25, 25, 25}},
        {"leap day in a leap year", 2000y / 2 / 29, 2024y / 2 / 29, {23, 24, 23, 24}},
        {"64 years and 6 months", 1950y / 1 / 31, 2014y / 7 / 1, {64, 64, 64, 64}},
        {"65 years and 6 months", 1950y / 1 / 31, 2015y / 7 / 1, {65, 65, 65, 66}},
        {"89 years and 6 months", 1950y / 1 / 31, 2039y / 7 / 1, {89, 89, 89, 90}},
        {"90 years and 6 months", 1950y / 1 / 31, 2040y / 7 / 1, {90, 90, 90, 90}},
        {"90 years and 7 months", 1950y / 1 / 31, 2040y / 8 / 1, {90, 90, 90, 91}},
        {"half a year short of 65", 1950y / 7 / 1, 2015y / 1 / 31, {64, 64, 64, 64}},
        {"half a year short of 66", 1950y / 7 / 1, 2016y / 1 / 31, {65, 65, 65, 66}}};
    for (const Case& c : cases) {
        const int month = month_of(c.day);
        const int year = year_of(c.day);
        const AllAges ages{age_on_day(c.birth, c.day), age_in_month(c.birth, month, year),
                           age_at_payment(c.birth, month, year), currentage(c.birth, c.day)};
        EXPECT_EQ(ages, c.expected)
            << c.name << ": born " << date_text(c.birth) << ", on " << date_text(c.day);
    }
}

TEST(Ages, LastBirthAtAnAgeIsFoundOnEveryDay) {
    for (Date day = 2023y / 1 / 1; day < 2025y / 1 / 1;
         day = std::chrono::sys_days{day} + std::chrono::days{1}) {
        for (const int age : {16, 34, 35, 101}) {
            const Date last = last_birth_at_age(age, day);
            const Date next = std::chrono::sys_days{last} + std::chrono::days{1};
            EXPECT_GE(age_on_day(last, day), age) << date_text(day);
            EXPECT_LT(age_on_day(next, day), age) << date_text(day);
        }
    }
}

TEST(Ages, SeventyAndAHalfHasPassedFromTheDayAfter) {
    EXPECT_FALSE(cmp_birth(1950y / 6 / 15, 2020y / 12 / 15));
    EXPECT_TRUE(cmp_birth(1950y / 6 / 15, 2020y / 12 / 16));
    EXPECT_FALSE(cmp_birth(1952y / 2 / 29, 2022y / 8 / 28));
    EXPECT_TRUE(cmp_birth(1952y / 2 / 29, 2022y / 8 / 29));
}

}  // namespace
}  // namespace kelvar::test
