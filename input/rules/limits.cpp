#include "input/rules/limits.h"

#include <cstdint>
#include <limits>
#include <string>

#include "core/ages.h"
#include "core/first_that.h"
#include "core/numbers.h"
#include "core/plan.h"
#include "input/rules/birth_date.h"
#include "input/rules/first_payment.h"
#include "input/rules/next_checks.h"
#include "input/rules/partial_amount.h"
#include "input/rules/spouse.h"

namespace kelvar {

namespace {

std::int64_t cents_of(double dollars) {
    return static_cast<std::int64_t>(whole_cents(dollars).count);
}

// The least amount from a cent to `most` cents that is accepted.
template <class Accepts>
std::optional<double> least_accepted(std::int64_t most, Accepts accepts) {
    const std::int64_t least = first_that(
        most, [&](std::int64_t cents) { return accepts(static_cast<double>(cents) / 100.0); });
    return least <= most ? std::optional{static_cast<double>(least) / 100.0} : std::nullopt;
}

// Asks for a copy, because Next stores what it checks.
std::optional<int> payments_of(const LengthEntry& entry, Scenario scenario, Database& database,
                               Date today) {
    const bool known = scenario.frequency != 0 && !chk_fld(entry, scenario, database, today);
    return known ? std::optional<int>{scenario.number_of_payments} : std::nullopt;
}

}  // namespace

std::optional<Date> latest_first_month(Date birth, Date today) {
    const std::vector<int> years = first_payment_years(birth, today);
    if (years.empty()) {
        return std::nullopt;
    }
    return real_date(years.back(), first_payment_months(true).back(), 1);
}

std::optional<Date> passed_deadline(Date birth, Date today) {
    const auto month =
        real_date(year_of(age_seventy_and_a_half(birth)) + 1, plan::last_month_of_deadline, 1);
    const bool passed = birth_date_known(birth) && add_months(*month, 1) <= today;
    return passed ? month : std::nullopt;
}

Births participant_births(Date today) {
    return {last_birth_at_age(plan::oldest_participant + 1, today),
            last_birth_at_age(plan::youngest_participant, today)};
}

Births spouse_births(int participant_age, Date today) {
    return {last_birth_at_age(participant_age - plan::least_spouse_difference, today),
            last_birth_at_age(plan::youngest_spouse, today)};
}

std::optional<double> least_partial_amount(const Scenario& scenario, Database& database, Date today) {
    Scenario tried = scenario;
    tried.frequency = 1;
    tried.partial_amount = 0.0;
    if (!check_minimum_distribution(tried, database)) {
        return std::nullopt;
    }
    const std::int64_t most = cents_of(scenario.present_value) - 1;
    return least_accepted(most, [&](double amount) {
        tried.partial_amount = amount;
        return !check_partial(tried, database, amount, today);
    });
}

std::optional<int> most_payments(const Scenario& scenario, Database& database, Date today) {
    constexpr int most = std::numeric_limits<std::int16_t>::max();
    const auto refused = [&](std::int64_t number) {
        const LengthEntry entry{.option = by_number_of_payments, .number = static_cast<double>(number)};
        return !payments_of(entry, scenario, database, today);
    };
    const auto accepted = static_cast<int>(first_that(most, refused)) - 1;
    return accepted > 0 ? std::optional{accepted} : std::nullopt;
}

std::optional<double> least_amount(const Scenario& scenario, Database& database, Date today) {
    if (scenario.frequency == 0) {
        return std::nullopt;
    }
    Scenario tried = scenario;
    const std::int64_t most = cents_of(scenario.present_value);
    return least_accepted(most, [&](double amount) {
        const LengthEntry entry{.option = by_dollar_amount, .amount = amount};
        return !chk_fld(entry, tried, database, today);
    });
}

std::optional<Scenario> with_amount(const Scenario& scenario, Database& database, Date today) {
    Scenario tried = scenario;
    const auto least = least_amount(scenario, database, today);
    const bool accepted =
        least && !chk_fld({.option = by_dollar_amount, .amount = least}, tried, database, today);
    tried.length_option = by_dollar_amount;
    return accepted ? std::optional{tried} : std::nullopt;
}

std::optional<int> payments_over_life(const Scenario& scenario, Database& database, Date today) {
    return payments_of({.option = by_life_expectancy}, scenario, database, today);
}

std::optional<int> payments_over_joint_life(const Scenario& scenario, std::string_view spouse_mask_text,
                                            Database& database, Date today) {
    const SpouseCheck spouse = check_spouse(spouse_mask_text, scenario.current_age, today);
    if (spouse.wrong) {
        return std::nullopt;
    }
    Scenario with_spouse = scenario;
    with_spouse.spouse_birth_date = *spouse.birth_date;
    return payments_of({.option = by_life_expectancy, .joint = true}, with_spouse, database, today);
}

}  // namespace kelvar
