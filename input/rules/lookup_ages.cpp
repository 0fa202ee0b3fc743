#include "input/rules/lookup_ages.h"

#include "core/ages.h"
#include "core/plan.h"

namespace kelvar {

namespace {

struct Month {
    int month;
    int year;
};

// The month in which periodic payments start.
Month start_month(const Scenario& scenario) {
    if (scenario.method == partial_lump_sum) {
        return {scenario.scenario_month, scenario.scenario_year};
    }
    return {scenario.first_pay_month, scenario.first_pay_year};
}

}  // namespace

std::int16_t shown_age(Date birth, int month, int year, Date today) {
    const bool present_month = month == month_of(today) && year == year_of(today);
    return present_month ? age_on_day(birth, today) : age_in_month(birth, month, year);
}

std::int16_t participant_lookup_age(const Scenario& scenario, Date today) {
    return shown_age(scenario.birth_date, scenario.first_pay_month, scenario.first_pay_year, today);
}

std::int16_t payment_start_age(const Scenario& scenario) {
    const auto [month, year] = start_month(scenario);
    return age_at_payment(scenario.birth_date, month, year);
}

bool minimum_distribution_counts(const Scenario& scenario) {
    return payment_start_age(scenario) >= plan::minimum_distribution_from;
}

std::int16_t single_life_age(const Scenario& scenario, Date today) {
    return scenario.method == partial_lump_sum ? payment_start_age(scenario)
                                               : participant_lookup_age(scenario, today);
}

JointAges joint_life_ages(const Scenario& scenario) {
    const auto [month, year] = start_month(scenario);
    return {age_in_month(scenario.birth_date, month, year),
            age_at_payment(scenario.spouse_birth_date, month, year)};
}

}  // namespace kelvar
