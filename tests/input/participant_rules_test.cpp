#include "input/rules/participant_rules.h"

#include <gtest/gtest.h>

#include <array>

#include "input/rules/ages.h"

namespace kelvar::test {
namespace {

using namespace std::chrono_literals;

const Date today = 2026y / 7 / 15;

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

TEST(Ages, SeventyAndAHalfHasPassedFromTheDayAfter) {
    EXPECT_FALSE(cmp_birth(1950y / 6 / 15, 2020y / 12 / 15));
    EXPECT_TRUE(cmp_birth(1950y / 6 / 15, 2020y / 12 / 16));
    EXPECT_FALSE(cmp_birth(1952y / 2 / 29, 2022y / 8 / 28));
    EXPECT_TRUE(cmp_birth(1952y / 2 / 29, 2022y / 8 / 29));
}

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
    const char* const invalid = "Invalid birth date.";
    const char* const too_young = "The current age should be at least 16 years!";
    const char* const too_old = "The current age should not axceed 100 years old.";
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
        EXPECT_EQ(check.message, c.message) << c.name << ": " << c.mask;
        EXPECT_EQ(check.date, read_masked_date(c.mask)) << c.name << ": " << c.mask;
        EXPECT_TRUE(c.age == any || c.age == check.age)
            << c.name << ": " << c.mask << " is " << c.age << ", got " << check.age;
    }
}

TEST(TypedNumber, LosesItsSignAndMustBeWhole) {
    const std::pair<const char*, double> numbers[] = {{"25000", 25000.0},
                                                      {"-25000", 25000.0},
                                                      {"+25000", 25000.0},
                                                      {"  25,000.00  ", 25000.0},
                                                      {"-$1,200.50", 1200.5},
                                                      {"1,234,567", 1234567.0},
                                                      {"1e3", 1000.0},
                                                      {".5", 0.5},
                                                      {"9999999999999.99", 9999999999999.99}};
    for (const auto& [text, expected] : numbers) {
        EXPECT_EQ(read_unsigned(text), expected) << '"' << text << '"';
        EXPECT_EQ(get_num(text), expected) << '"' << text << '"';
    }
    EXPECT_EQ(get_num("9,999,999,999,999.99"), 9999999999999.99);
    EXPECT_EQ(get_num("9999999999999.995"), std::nullopt) << "half a cent too large";
    EXPECT_EQ(read_unsigned(std::string(54, ' ') + "250000"), 250000.0);
    EXPECT_EQ(read_unsigned(std::string(55, ' ') + "250000"), std::nullopt) << "too long";
    EXPECT_EQ(read_unsigned("-10,000,000,000,000"), 1e13);
    EXPECT_EQ(get_num("-10,000,000,000,000"), std::nullopt) << "too large for cents";
    EXPECT_EQ(read_unsigned("999999999999999999999999999999"), 1e30);
    for (const char* text :
         {"1e400", "-1e400", "nan", "inf", "0x10", "25,00", "1,,000", ",250", "25 000", "2.5.0",
          "--5",   "+-5",    "5-",  "25x", "abc",  "-",     ".",      "$",    "   ",    ""}) {
        EXPECT_EQ(read_unsigned(text), std::nullopt) << '"' << text << '"';
        EXPECT_EQ(get_num(text), std::nullopt) << '"' << text << '"';
    }
}

TEST(FirstPayment, YearsEndAfterTheYearOfSeventyAndAHalfOrNextYear) {
    struct Case {
        const char* name;
        Date birth, day;
        std::vector<int> expected;
    };
    const Case cases[] = {
        {"years before", 1957y / 6 / 15, today, {2026, 2027, 2028}},
        {"reached next February", 1956y / 8 / 31, today, {2026, 2027, 2028}},
        {"on the day, late in the year", 1955y / 6 / 30, 2025y / 12 / 30, {2025, 2026}},
        {"passed with the turn of the year", 1955y / 6 / 30, 2026y / 1 / 1, {2026, 2027}},
        {"the day after", 1956y / 1 / 14, today, {2026, 2027}},
        {"no date of birth", no_date, today, {}}};
    for (const Case& c : cases) {
        EXPECT_EQ(first_payment_years(c.birth, c.day), c.expected)
            << c.name << ": born " << date_text(c.birth) << ", on " << date_text(c.day);
    }
    EXPECT_EQ(first_payment_months(true), (std::vector{1, 2, 3}));
    EXPECT_EQ(first_payment_months(false), (std::vector{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}));
}

// Born 15 June 1955: 70½ on 15 December 2025, so that 2027 is the last year from 1 January 2026 on.
TEST(FirstPayment, MustStillBeOfferedWhenTheResultIsComputed) {
    struct Case {
        std::int16_t month, year;
        Date day;
        bool accepted;
    };
    for (const Case& c :
         {Case{7, 2026, today, true}, Case{6, 2026, today, false}, Case{12, 2025, today, false},
          Case{7, 2026, 2026y / 7 / 31, true}, Case{7, 2026, 2026y / 8 / 1, false},
          Case{3, 2027, today, true}, Case{3, 2027, 2025y / 12 / 31, false},
          Case{7, 2026, 2025y / 12 / 31, false}, Case{3, 2026, 2025y / 12 / 31, true}}) {
        Scenario scenario;
        scenario.birth_date = 1955y / 6 / 15;
        scenario.first_pay_month = c.month;
        scenario.first_pay_year = c.year;
        const Refusal got = check_first_payment(scenario, c.day).value_or(Refusal{});
        EXPECT_EQ(got.field, c.accepted ? "" : "Cmbfrstmonth")
            << c.month << '/' << c.year << ", on " << date_text(c.day);
    }
}

TEST(ChkFields, StopsAtTheFirstFault) {
    using Told = std::pair<std::string_view, std::string_view>;
    const Told month{"Invalid month that you wish to begin payments.", "Cmbfrstmonth"};
    const Told value{"Invalid present value of the account.", "txtcurvalue"};
    const Told birth{"Invalid birth date.", "mskbirth"};
    const Told accepted;
    const char* const unfilled = "__/__/____";
    struct Case {
        const char* name;
        ParticipantEntry entry;
        Told expected;
    };
    const Case cases[] = {{"everything wrong", {6, 2026, "", unfilled}, month},
                          {"last year, later month", {12, 2025, "1", "06/15/1950"}, month},
                          {"last month, no year offered", {6, 0, "", unfilled}, month},
                          {"this month, no year offered", {7, 0, "", unfilled}, value},
                          {"value of 0", {7, 2026, "0.00", "06/15/1950"}, value},
                          {"less than half a cent", {7, 2026, "0.004", "06/15/1950"}, value},
                          {"value no number", {7, 2026, "25x", "06/15/1950"}, value},
                          {"value too large", {7, 2026, "1e13", "06/15/1950"}, value},
                          {"date missing", {7, 2026, "25,000.00", unfilled}, birth},
                          {"this month", {7, 2026, "25,000.00", "06/15/1950"}, accepted},
                          {"earlier month of next year", {1, 2027, "1", "06/15/1950"}, accepted},
                          {"half a cent", {7, 2026, "0.005", "06/15/1950"}, accepted},
                          {"negative value", {7, 2026, "-25000", "06/15/1950"}, accepted}};
    for (const Case& c : cases) {
        const Refusal got = chk_fields(c.entry, today).value_or(Refusal{});
        EXPECT_EQ(Told(got.text, got.field), c.expected)
            << c.name << ": " << c.entry.month << '/' << c.entry.year << ", \"" << c.entry.value_text
            << "\", \"" << c.entry.birth_text << '"';
    }
}

TEST(ShownAge, IsTodaysAgeInThePresentMonthOnly) {
    struct Case {
        const char* name;
        Date birth;
        std::int16_t month, year;
        int expected;
    };
    for (const Case& c : {Case{"birthday later this month", 1950y / 7 / 20, 7, 2026, 75},
                          Case{"birthday was this month", 1950y / 7 / 14, 7, 2026, 76},
                          Case{"next month", 1950y / 7 / 20, 8, 2026, 76},
                          Case{"a year later, month before", 1950y / 7 / 20, 6, 2027, 76},
                          Case{"a year later, birth month", 1950y / 7 / 20, 7, 2027, 77}}) {
        EXPECT_EQ(shown_age(c.birth, age_on_day(c.birth, today), c.month, c.year, today), c.expected)
            << c.name;
        Scenario scenario;
        scenario.birth_date = c.birth;
        scenario.first_pay_month = c.month;
        scenario.first_pay_year = c.year;
        scenario.current_age = scenario.lookup_age = 99;  // as another screen may have left them
        EXPECT_EQ(participant_lookup_age(scenario, today), c.expected) << c.name;
    }
}

}  // namespace
}  // namespace kelvar::test
