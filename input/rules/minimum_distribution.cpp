#include "input/rules/minimum_distribution.h"

#include "core/ages.h"
#include "core/life_tables.h"

namespace kelvar {

Check check_minimum_distribution(const Scenario& scenario, Database& database) {
    const auto first_payment_date = real_date(scenario.first_pay_year, scenario.first_pay_month, 1);
    const bool due = first_payment_date >= age_seventy_and_a_half(scenario.birth_date);
    if (!due || scenario.scenario_year <= scenario.first_pay_year) {
        return std::nullopt;
    }
    const int age =
        age_in_month(scenario.birth_date, scenario.first_pay_month, scenario.first_pay_year);
    const auto divisor = single_life_divisor(database, age);
    if (divisor && scenario.partial_amount < scenario.present_value / *divisor) {
        return Refusal{
            "Your partial amount certain will be below your minimum distribution for that year!",
            "txtpartial", Refusal::Means::limited};
    }
    return std::nullopt;
}

}  // namespace kelvar
