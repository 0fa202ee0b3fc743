#include "input/rules/commencement.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace kelvar::test {
namespace {

using namespace std::chrono_literals;

const Date today = 2026y / 7 / 15;

// Each offered year with its first and last month, such as "2026: 9-12".
std::vector<std::string> offers(const Scenario& scenario) {
    std::vector<std::string> offered;
    for (const int year : scenario_years(scenario, today)) {
        const std::vector<int> months = scenario_months(scenario, year, today);
        offered.push_back(months.empty() ? fmt::format("{}: none", year)
                                         : fmt::format("{}: {}-{}", year, months[0], months.back()));
    }
    return offered;
}

TEST(Commencement, IsOfferedAfterTheFirstPaymentUntilTheDeadline) {
    struct Case {
        const char* name;
        Date birth;
        std::int16_t current_age, month, year;
        std::vector<std::string> expected;
    };
    const Date coming = 1957y / 6 / 15;  // 70½ in December 2027
    const Date passed = 1956y / 1 / 14;  // 70½ yesterday
    const Case cases[] = {
        {"coming", coming, 69, 8, 2026, {"2026: 9-12", "2027: 1-12", "2028: 1-3"}},
        {"December", coming, 69, 12, 2026, {"2027: 1-12", "2028: 1-3"}},
        {"December, one year left", coming, 69, 12, 2027, {"2028: 1-3"}},
        {"last year", coming, 69, 3, 2028, {"2028: 4-12", "2029: 1-3"}},
        {"today, last year", 1956y / 1 / 15, 70, 2, 2027, {"2027: 3-12", "2028: 1-3"}},
        {"passed", passed, 70, 8, 2026, {"2026: 9-12", "2027: 1-3"}},
        {"passed, last year", passed, 70, 2, 2027, {"2027: 3-3"}},
        {"passed, last month", passed, 70, 3, 2027, {"2027: none"}},
        {"71, last year", 1955y / 7 / 1, 71, 3, 2027, {"2027: 4-12", "2028: 1-3"}},
        {"no date of birth", no_date, 0, 8, 2026, {}}};
    for (const Case& c : cases) {
        Scenario scenario;
        scenario.birth_date = c.birth;
        scenario.current_age = c.current_age;
        scenario.first_pay_month = c.month;
        scenario.first_pay_year = c.year;
        EXPECT_EQ(offers(scenario), c.expected)
            << c.name << ": born " << date_text(c.birth) << ", age " << c.current_age
            << ", first payment " << c.month << '/' << c.year;
    }
}

TEST(Commencement, HasNoMonthsInAYearThatIsNotOffered) {
    Scenario scenario;
    scenario.birth_date = 1957y / 6 / 15;
    scenario.first_pay_month = 8;
    scenario.first_pay_year = 2026;
    for (const int year : {0, 2025, 2029}) {
        EXPECT_EQ(scenario_months(scenario, year, today), std::vector<int>{}) << year;
    }
}

}  // namespace
}  // namespace kelvar::test
