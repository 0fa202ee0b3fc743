#include "input/rules/lookup_ages.h"

#include <gtest/gtest.h>

#include "core/ages.h"

namespace kelvar::test {
namespace {

using namespace std::chrono_literals;

const Date today = 2026y / 7 / 15;

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
        EXPECT_EQ(shown_age(c.birth, c.month, c.year, today), c.expected) << c.name;
        Scenario scenario;
        scenario.birth_date = c.birth;
        scenario.first_pay_month = c.month;
        scenario.first_pay_year = c.year;
        scenario.current_age = scenario.lookup_age = 99;  // as another screen may have left them
        EXPECT_EQ(participant_lookup_age(scenario, today), c.expected) << c.name;
    }
}

TEST(StartOfPayments, AgeIsThatOfTheMethodsOwnDate) {
    Scenario scenario;
    scenario.birth_date = 1950y / 6 / 15;
    scenario.first_pay_year = 2020;
    scenario.scenario_year = 2021;
    for (const auto& [method, month, scenario_month, expected] :
         {std::tuple{periodic_payments, 6, 7, 69}, std::tuple{periodic_payments, 7, 6, 70},
          std::tuple{partial_lump_sum, 5, 6, 70}, std::tuple{partial_lump_sum, 5, 7, 71}}) {
        scenario.method = method;
        scenario.first_pay_month = static_cast<std::int16_t>(month);
        scenario.scenario_month = static_cast<std::int16_t>(scenario_month);
        EXPECT_EQ(payment_start_age(scenario), expected) << "month " << month << ", " << scenario_month;
    }
}

}  // namespace
}  // namespace kelvar::test
