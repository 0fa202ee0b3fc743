#include "input/rules/commencement.h"

#include <tuple>

#include "core/ages.h"
#include "core/plan.h"
#include "input/rules/birth_date.h"
#include "input/rules/first_payment.h"

namespace kelvar {

namespace {

constexpr const char* field = "cmbscnyear";

// The calendar year by which periodic payments must have started; a year later when the first payment
// itself is only made then.
int last_scenario_year(const Scenario& scenario, Date today) {
    const int last = deadline_year(scenario.birth_date, today);
    const bool may_be_later =
        !cmp_birth(scenario.birth_date, today) || scenario.current_age >= plan::late_first_payment_from;
    return may_be_later && scenario.first_pay_year == last ? last + 1 : last;
}

}  // namespace

std::vector<int> scenario_years(const Scenario& scenario, Date today) {
    if (!birth_date_known(scenario.birth_date)) {
        return {};
    }
    const int last = last_scenario_year(scenario, today);
    const bool next_year = scenario.first_pay_month == 12 && scenario.first_pay_year < last;
    return all_from(scenario.first_pay_year + (next_year ? 1 : 0), last);
}

std::vector<int> scenario_months(const Scenario& scenario, int chosen_year, Date today) {
    const int last_year = last_scenario_year(scenario, today);
    if (chosen_year < scenario.first_pay_year || chosen_year > last_year) {
        return {};
    }
    const int first = chosen_year == scenario.first_pay_year ? scenario.first_pay_month + 1 : 1;
    return all_from(first, chosen_year == last_year ? plan::last_month_of_deadline : 12);
}

int commencement_age(const Scenario& scenario, Date today) {
    return age_in_month(scenario.birth_date, month_of(today), scenario.scenario_year);
}

Check check_beyond_life(int commencement_age, bool insists) {
    if (commencement_age >= plan::minimum_distribution_from) {
        return Refusal{
            "Your selection will result in distribution payments beyound your life expectancy", field};
    }
    if (!insists) {
        return Refusal{
            "Your selection will result in distribution payments beyond your life expectancy. "
            "Do you wish to re-enter your selection?",
            field, Refusal::Means::asked};
    }
    if (commencement_age > plan::oldest_commencement) {
        return Refusal{
            "Your selection will result in payments beyond age 100. Please re-enter your selection",
            field};
    }
    return std::nullopt;
}

Check check_later_than_first_payment(const Scenario& scenario) {
    if (std::tie(scenario.scenario_year, scenario.scenario_month) >
        std::tie(scenario.first_pay_year, scenario.first_pay_month)) {
        return std::nullopt;
    }
    return Refusal{
        "Periodic payments cannot commence prior to the initial partial lump sum (first payment) date!",
        field};
}

}  // namespace kelvar
