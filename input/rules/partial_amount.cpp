#include "input/rules/partial_amount.h"

#include <cmath>

#include "core/ages.h"
#include "core/life_tables.h"
#include "core/numbers.h"
#include "input/rules/typed_numbers.h"

namespace kelvar {

namespace {

constexpr const char* field = "txtpartial";

}  // namespace

std::optional<double> read_partial_amount(std::string_view text) {
    const auto amount = read_entry(text);
    const bool valid = amount && std::abs(*amount) <= largest_amount;
    return valid ? std::optional{round_to_cents(*amount)} : std::nullopt;
}

bool is_percentage(double percentage) {
    return percentage > 0.0 && percentage < 100.0;
}

std::optional<double> read_percentage(std::string_view text) {
    const auto percentage = read_entry(text);
    return percentage && is_percentage(*percentage) ? percentage : std::nullopt;
}

double amount_of_percentage(double present_value, double percentage) {
    return round_to_cents(present_value * percentage / 100.0);
}

std::string percentage_of_amount(double present_value, double partial_amount) {
    return format_number(partial_amount / present_value * 100.0, pattern::percentage);
}

Check check_amount_typed(std::optional<double> typed) {
    return typed ? std::nullopt : Check{Refusal{"Invalid partial amount certain!", field}};
}

Check partial_msg(const Scenario& scenario) {
    if (scenario.partial_amount > 0.0 && scenario.partial_amount < scenario.present_value) {
        return std::nullopt;
    }
    return Refusal{"Invalid partial lump sum amount.", field};
}

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
