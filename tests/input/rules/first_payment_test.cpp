#include "input/rules/first_payment.h"

#include <gtest/gtest.h>

#include "tests/support/told.h"

namespace kelvar::test {
namespace {

using namespace std::chrono_literals;

const Date today = 2026y / 7 / 15;

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
    const std::string passed = "Invalid month that you wish to begin payments. [Cmbfrstmonth]";
    struct Case {
        std::int16_t month, year;
        Date day;
        bool accepted;
    };
    for (const Case& c :
         {Case{7, 2026, today, true}, Case{6, 2026, today, false}, Case{12, 2025, today, false},
          Case{7, 2026, 2026y / 7 / 31, true}, Case{7, 2026, 2026y / 8 / 1, false},
          Case{3, 2027, today, true}, Case{3, 2027, 2025y / 12 / 31, false},
          Case{7, 2026, 2025y / 12 / 31, false}, Case{8, 2026, 2026y / 7 / 14, false}}) {
        Scenario scenario;
        scenario.birth_date = 1955y / 6 / 15;
        scenario.entry_date = today;
        scenario.first_pay_month = c.month;
        scenario.first_pay_year = c.year;
        EXPECT_EQ(told(check_first_payment(scenario, c.day)), c.accepted ? accepted : passed)
            << c.month << '/' << c.year << ", on " << date_text(c.day);
    }
}

}  // namespace
}  // namespace kelvar::test
