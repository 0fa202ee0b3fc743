#include "core/dates.h"

#include <gtest/gtest.h>
#include <stdio.h>

#include <array>
#include <stdexcept>
#include <string>

namespace kelvar::test {
namespace {

using namespace std::chrono_literals;

TEST(Dates, MovesKeepTheDayAndClampItToAShorterMonth) {
    struct Case {
        Date from;
        int years;
        int months;
        const char* expected;
    };
    const Case cases[] = {
        {2026y / 1 / 31, 0, 1, "02/28/2026"},   {2024y / 1 / 31, 0, 1, "02/29/2024"},
        {2026y / 2 / 28, 0, 1, "03/28/2026"},   {2026y / 8 / 31, 0, -2, "06/30/2026"},
        {2026y / 1 / 15, 0, -1, "12/15/2025"},  {2026y / 12 / 31, 0, 2, "02/28/2027"},
        {2026y / 3 / 31, 0, -25, "02/29/2024"}, {2026y / 5 / 30, 0, 0, "05/30/2026"},
        {2024y / 2 / 29, 1, 0, "02/28/2025"},   {2024y / 2 / 29, 4, 0, "02/29/2028"},
        {1996y / 2 / 29, 104, 0, "02/28/2100"}, {2024y / 2 / 29, -24, 0, "02/29/2000"},
        {2026y / 7 / 15, 69, 0, "07/15/2095"}};
    for (const Case& c : cases) {
        EXPECT_EQ(date_text(add_months(add_years(c.from, c.years), c.months)), c.expected)
            << date_text(c.from) << " and " << c.years << " years, " << c.months << " months";
    }
}

TEST(Dates, OnlyDaysOfTheCalendarAreReal) {
    for (const auto& [year, month, day] :
         {std::array{2024, 2, 29}, {2000, 2, 29}, {1, 1, 1}, {9999, 12, 31}, {2026, 4, 30}}) {
        const std::optional<Date> date = real_date(year, month, day);
        ASSERT_TRUE(date.has_value()) << year << '-' << month << '-' << day;
        EXPECT_EQ(year_of(*date), year);
        EXPECT_EQ(month_of(*date), month);
        EXPECT_EQ(day_of(*date), day);
    }
    for (const auto& [year, month, day] : {std::array{2026, 2, 29},
                                           {1900, 2, 29},
                                           {2026, 4, 31},
                                           {2026, 13, 1},
                                           {2026, 0, 1},
                                           {2026, 1, 0},
                                           {2026, 1, 32},
                                           {2026, 1, 257},
                                           {2026, 257, 1},
                                           {0, 1, 1},
                                           {10000, 1, 1}}) {
        EXPECT_FALSE(real_date(year, month, day).has_value()) << year << '-' << month << '-' << day;
    }
}

TEST(Dates, DaysBetweenCountsLeapDays) {
    EXPECT_EQ(days_between(2024y / 2 / 28, 2024y / 3 / 1), 2);
    EXPECT_EQ(days_between(2026y / 2 / 28, 2026y / 3 / 1), 1);
    EXPECT_EQ(days_between(2026y / 7 / 31, 2036y / 7 / 31), 3653);  // ten years, three leap days
    EXPECT_EQ(days_between(2026y / 3 / 1, 2026y / 2 / 1), -28);
}

TEST(Dates, SeventyAndAHalfIsSeventyYearsAndThenSixMonths) {
    struct Case {
        const char* name;
        Date birth;
        const char* expected;
    };
    const Case cases[] = {{"in the same year", 1950y / 6 / 15, "12/15/2020"},
                          {"in the next year", 1950y / 7 / 1, "01/01/2021"},
                          {"end of August into February", 1950y / 8 / 31, "02/28/2021"},
                          {"end of August into a leap February", 1953y / 8 / 31, "02/29/2024"},
                          {"leap day, 70 years later no leap year", 1952y / 2 / 29, "08/28/2022"},
                          {"end of March into September", 1955y / 3 / 31, "09/30/2025"}};
    for (const Case& c : cases) {
        EXPECT_EQ(date_text(age_seventy_and_a_half(c.birth)), c.expected) << c.name;
    }
}

TEST(Dates, MonthsHaveFullEnglishNames) {
    EXPECT_EQ(month_name(1), "January");
    EXPECT_EQ(month_name(12), "December");
    EXPECT_THROW(month_name(0), std::out_of_range);
    EXPECT_THROW(month_name(13), std::out_of_range);
    for (int month = 1; month <= 12; ++month) {
        EXPECT_EQ(month_number(month_name(month)), month);
    }
    EXPECT_EQ(month_number("FEBRUARY"), 2);
    for (const char* other : {"", "Feb", "Februaryy", " May", "13"}) {
        EXPECT_EQ(month_number(other), 0) << other;
    }
}

std::string date_of_the_machine() {
    std::array<char, 11> text{};
    FILE* pipe = popen("date +%m/%d/%Y", "r");
    EXPECT_NE(fgets(text.data(), text.size(), pipe), nullptr);
    pclose(pipe);
    return text.data();
}

TEST(Dates, TheClockHasTheDayOfTheMachine) {
    const std::string before = date_of_the_machine();
    const std::string told = date_text(system_date());
    EXPECT_TRUE(told == before || told == date_of_the_machine()) << told << ", not " << before;
}

TEST(Dates, TextNeverGroupsTheYear) {
    EXPECT_EQ(month_year_text(2020y / 7 / 1), "July, 2020");
    EXPECT_EQ(date_text(2020y / 7 / 1), "07/01/2020");
    EXPECT_EQ(date_text(2026y / 12 / 31), "12/31/2026");
    EXPECT_LT(year_of(no_date), 1900);
}

}  // namespace
}  // namespace kelvar::test
