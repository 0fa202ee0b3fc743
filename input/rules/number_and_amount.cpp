#include "input/rules/number_and_amount.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/life_tables.h"
#include "core/numbers.h"

namespace kelvar {

Check take_number(Scenario& scenario, std::optional<double> typed) {
    const double number = std::round(typed.value_or(0.0));
    if (number < 1.0) {
        return Refusal{invalid_number, "txtnumber"};
    }
    constexpr double most = std::numeric_limits<std::int16_t>::max();
    scenario.number_of_payments = static_cast<std::int16_t>(std::min(number, most));
    return std::nullopt;
}

Check take_amount(Scenario& scenario, std::optional<double> typed) {
    const double amount = round_to_cents(typed.value_or(0.0));
    if (amount == 0.0) {
        return Refusal{"Invalid dollar amount of payments", "txtfixamount"};
    }
    scenario.fixed_amount = std::min(amount, scenario.present_value);
    return std::nullopt;
}

bool amount_may_outlast_life(const Scenario& scenario) {
    return scenario.method == partial_lump_sum && scenario.fixed_amount >= scenario.partial_amount;
}

Check check_number_within_life(const Scenario& scenario) {
    if (payments_exceed_life(scenario.number_of_payments, scenario.frequency,
                             {scenario.lookup_age, scenario.life_expectancy_age})) {
        return Refusal{
            "The number of payments will exceed your life expectancy or result in an amount below your "
            "minimum distribution. Please reduce the number of payments!",
            "txtnumber", Refusal::Means::limited};
    }
    return std::nullopt;
}

Check check_amount_within_life(const Scenario& scenario) {
    const double years = (scenario.present_value - scenario.partial_amount) /
                             (scenario.frequency * scenario.fixed_amount) +
                         scenario.lookup_age;
    if (years > scenario.life_expectancy_age) {
        return Refusal{
            "This amount will be below your minimum distribution or would result in payments beyond "
            "your life expectancy. Please increase the dollar amount!",
            "txtfixamount", Refusal::Means::limited};
    }
    return std::nullopt;
}

}  // namespace kelvar
