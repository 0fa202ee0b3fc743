#include "input/rules/entries.h"

#include <algorithm>
#include <limits>
#include <string>

#include "core/numbers.h"
#include "core/plan.h"
#include "input/rules/birth_date.h"
#include "input/rules/commencement.h"
#include "input/rules/first_payment.h"
#include "input/rules/lookup_ages.h"
#include "input/rules/next_checks.h"
#include "input/rules/partial_amount.h"
#include "input/rules/rates.h"
#include "input/rules/spouse.h"

namespace kelvar {

namespace {

std::string typed(const std::optional<Date>& date) {
    return date ? date_text(*date) : std::string(empty_mask);
}

double amount_certain(const Entries& entries) {
    return entries.partial_percent
               ? amount_of_percentage(entries.present_value.value_or(0.0), *entries.partial_percent)
               : entries.partial_amount.value_or(0.0);
}

// What was chosen, accepted or not, so that it can be named. What belongs to another method or length
// counts for nothing.
Scenario chosen(const Entries& entries) {
    Scenario scenario;
    scenario.fee_amount = plan::yearly_fee;
    scenario.method = entries.method.value_or(no_method);
    if (scenario.method == lump_sum) {
        return scenario;
    }
    if (scenario.method == partial_lump_sum) {
        scenario.partial_amount = amount_certain(entries);
    }
    scenario.frequency = static_cast<std::int16_t>(entries.frequency.value_or(0));
    scenario.length_option = entries.length_option.value_or(no_length);
    scenario.joint_life = entries.joint_life.value_or(false);
    if (scenario.length_option == by_number_of_payments) {
        constexpr int most = std::numeric_limits<std::int16_t>::max();
        scenario.number_of_payments =
            static_cast<std::int16_t>(std::min(entries.number_of_payments.value_or(0), most));
    }
    if (scenario.length_option == by_dollar_amount) {
        scenario.fixed_amount = entries.fixed_amount.value_or(0.0);
    }
    return scenario;
}

Check enter_participant(const Entries& entries, Scenario& scenario, Date today) {
    const std::string mask = typed(entries.birth_date);
    const BirthCheck birth = check_birth(mask, today);
    if (entries.birth_date && birth.wrong) {
        return birth.wrong;
    }
    const int month = entries.first_pay_month.value_or(month_of(today));
    // Without a date of birth the screen offers no year.
    const int year = entries.birth_date ? entries.first_pay_year.value_or(0) : 0;
    if (const Check check = chk_fields({month, year, entries.present_value, mask}, today)) {
        return check;
    }
    const std::vector<int> years = first_payment_years(*birth.date, today);
    const bool latest = year == years.back();
    if (!is_offered(years, year) || !is_offered(first_payment_months(latest), month)) {
        return Refusal{invalid_month, "Cmbfrstmonth"};
    }
    scenario.name = entries.name.value_or("");
    scenario.birth_date = *birth.date;
    scenario.current_age = birth.age;
    scenario.present_value = round_to_cents(*entries.present_value);
    scenario.entry_date = today;
    scenario.first_pay_month = static_cast<std::int16_t>(month);
    scenario.first_pay_year = static_cast<std::int16_t>(year);
    scenario.over_72_flag = latest ? 1 : 0;
    scenario.lookup_age = shown_age(scenario.birth_date, month, year, today);
    return std::nullopt;
}

Check enter_partial(const Entries& entries, Scenario& scenario, Database& database, Date today,
                    bool insists) {
    if (entries.partial_percent && !is_percentage(*entries.partial_percent)) {
        return invalid_percentage;
    }
    const bool typed_any = entries.partial_amount || entries.partial_percent;
    const auto amount = typed_any ? std::optional{scenario.partial_amount} : std::nullopt;
    scenario.partial_percent = percentage_of_amount(scenario.present_value, scenario.partial_amount);
    const int year = entries.scenario_year.value_or(0);
    const int month = entries.scenario_month.value_or(0);
    if (is_offered(scenario_years(scenario, today), year) &&
        is_offered(scenario_months(scenario, year, today), month)) {
        scenario.scenario_year = static_cast<std::int16_t>(year);
        scenario.scenario_month = static_cast<std::int16_t>(month);
    }
    return check_partial(scenario, database, amount, today, insists);
}

Check enter_method(const Entries& entries, Scenario& scenario, Database& database, Date today,
                   bool insists) {
    if (scenario.method == no_method) {
        return method_to_choose;
    }
    if (scenario.method == lump_sum) {
        return std::nullopt;
    }
    if (scenario.method == partial_lump_sum) {
        return enter_partial(entries, scenario, database, today, insists);
    }
    return check_periodic(scenario);
}

Check enter_spouse(const Entries& entries, Scenario& scenario, Date today) {
    if (const Check check = check_joint_life(scenario.birth_date, today)) {
        return check;
    }
    const SpouseCheck spouse =
        check_spouse(typed(entries.spouse_birth_date), scenario.current_age, today);
    scenario.spouse_birth_date = spouse.birth_date.value_or(no_date);
    scenario.spouse_current_age = spouse.age;
    return spouse.wrong;
}

Check enter_length(const Entries& entries, Scenario& scenario, Database& database, Date today) {
    scenario.payment_start_age = payment_start_age(scenario);
    const bool joint = over_joint_life(scenario);
    if (joint) {
        if (const Check check = enter_spouse(entries, scenario, today)) {
            return check;
        }
    }
    const auto& number = entries.number_of_payments;
    const Check check = chk_fld({.option = static_cast<LengthOption>(scenario.length_option),
                                 .joint = joint,
                                 .number = number ? std::optional<double>{*number} : std::nullopt,
                                 .amount = entries.fixed_amount},
                                scenario, database, today);
    return check && check->means == Refusal::Means::told ? std::nullopt : check;
}

Check enter_rates(const Entries& entries, Scenario& scenario, Database& database) {
    const std::vector<double> offered = rate_list(database.rate(), {true});
    scenario.selected_rates = entries.selected_rates.value_or(std::vector<double>{});
    const bool all_offered = std::ranges::all_of(scenario.selected_rates, [&](double rate) {
        return std::ranges::find(offered, rate) != offered.end();
    });
    return scenario.selected_rates.empty() || !all_offered ? check_rates({}) : std::nullopt;
}

}  // namespace

Entered enter(const Entries& entries, Database& database, Date today, bool insists) {
    Entered entered{.scenario = chosen(entries)};
    Scenario& scenario = entered.scenario;
    Check& refused = entered.refused;
    refused = enter_participant(entries, scenario, today);
    if (!refused) {
        refused = enter_method(entries, scenario, database, today, insists);
    }
    if (!refused && scenario.method != lump_sum) {
        refused = enter_length(entries, scenario, database, today);
    }
    if (!refused) {
        refused = enter_rates(entries, scenario, database);
    }
    if (!refused) {
        refused = check_first_payment(scenario, today);
    }
    return entered;
}

}  // namespace kelvar
