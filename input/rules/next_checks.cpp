#include "input/rules/next_checks.h"

#include "core/ages.h"
#include "core/life_tables.h"
#include "input/rules/account_value.h"
#include "input/rules/birth_date.h"
#include "input/rules/commencement.h"
#include "input/rules/first_payment.h"
#include "input/rules/frequency.h"
#include "input/rules/life_expectancy.h"
#include "input/rules/lookup_ages.h"
#include "input/rules/number_and_amount.h"
#include "input/rules/partial_amount.h"

namespace kelvar {

Check chk_fields(const ParticipantEntry& entry, Date today) {
    if (const Check check = check_month_to_come(entry.month, entry.year, today)) {
        return check;
    }
    if (const Check check = check_account_value(entry.value)) {
        return check;
    }
    return check_birth_typed(entry.birth_text);
}

Check check_periodic(const Scenario& scenario) {
    return check_frequency(scenario.frequency, "chkperiod_0");
}

Check check_partial(Scenario& scenario, Database& database, std::optional<double> typed, Date today,
                    bool insists) {
    if (const Check check = check_amount_typed(typed)) {
        return check;
    }
    if (const Check check = partial_msg(scenario)) {
        return check;
    }
    if (const Check check = check_frequency(scenario.frequency, "chkpartial_0")) {
        return check;
    }
    scenario.current_age = age_in_month(scenario.birth_date, today);
    scenario.lookup_age = participant_lookup_age(scenario, today);
    if (const auto end = single_life_expectancy(database, scenario.lookup_age)) {
        scenario.life_expectancy_age = *end;
    }
    const int age = commencement_age(scenario, today);
    if (age >= scenario.life_expectancy_age) {
        return check_beyond_life(age, insists);
    }
    if (const Check check = check_later_than_first_payment(scenario)) {
        return check;
    }
    return check_minimum_distribution(scenario, database);
}

Check chk_fld(const LengthEntry& entry, Scenario& scenario, Database& database, Date today) {
    switch (entry.option) {
        case by_number_of_payments:
            if (const Check check = take_number(scenario, entry.number)) {
                return check;
            }
            return chk_life(by_number_of_payments, scenario, database, today);
        case by_dollar_amount:
            if (const Check check = take_amount(scenario, entry.amount);
                check || amount_may_outlast_life(scenario)) {
                return check;  // an exempt amount looks nothing up
            }
            return chk_life(by_dollar_amount, scenario, database, today);
        case by_life_expectancy:
            return chk_life(entry.joint ? by_joint_life_expectancy : by_life_expectancy, scenario,
                            database, today);
        default:
            return Refusal{invalid_number, "optlength_0"};
    }
}

}  // namespace kelvar
