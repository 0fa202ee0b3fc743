#include "input/rules/life_expectancy.h"

#include <cmath>

#include "core/life_tables.h"
#include "input/rules/lookup_ages.h"
#include "input/rules/number_and_amount.h"
#include "input/rules/spouse.h"

namespace kelvar {

namespace {

constexpr std::string_view invalid_age = "Your current age is invalid.";

// Each is false when the table does not have the age, or the pair of ages.
bool look_up_single(Scenario& scenario, Database& database, Date today) {
    scenario.lookup_age = single_life_age(scenario, today);
    const auto end = single_life_expectancy(database, scenario.lookup_age);
    scenario.life_expectancy_age = end.value_or(scenario.life_expectancy_age);
    return end.has_value();
}

bool look_up_joint(Scenario& scenario, Database& database) {
    const JointAges ages = joint_life_ages(scenario);
    scenario.lookup_age = ages.participant;
    scenario.spouse_lookup_age = ages.spouse;
    const auto end = joint_life_expectancy(database, ages.participant, ages.spouse);
    scenario.life_expectancy_age = end.value_or(scenario.life_expectancy_age);
    return end.has_value();
}

void fill_life_expectancy(Scenario& scenario) {
    const double payments =
        std::floor((scenario.life_expectancy_age - scenario.lookup_age) * scenario.frequency);
    scenario.number_of_payments = static_cast<std::int16_t>(payments);
}

}  // namespace

Check chk_life(int option, Scenario& scenario, Database& database, Date today) {
    const bool found = option == by_joint_life_expectancy ? look_up_joint(scenario, database)
                                                          : look_up_single(scenario, database, today);
    switch (option) {
        case by_number_of_payments:
            return found ? check_number_within_life(scenario) : Refusal{invalid_age, "txtnumber"};
        case by_dollar_amount:
            return found ? check_amount_within_life(scenario) : Refusal{invalid_age, "txtfixamount"};
        default:
            break;
    }
    if (!found) {
        return Refusal{option == by_joint_life_expectancy ? enter_spouse : invalid_age, "",
                       Refusal::Means::told};
    }
    fill_life_expectancy(scenario);
    return std::nullopt;
}

}  // namespace kelvar
