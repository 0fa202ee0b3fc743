#include "input/rules/length_rules.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/life_limit.h"
#include "core/numbers.h"
#include "input/rules/ages.h"
#include "input/rules/life_tables.h"
#include "input/rules/participant_rules.h"

namespace kelvar {

namespace {

constexpr std::string_view enter_spouse = "Please enter the birthdate of your spouse.";
constexpr std::string_view invalid_number = "Invalid mumber of payments.";
constexpr std::string_view invalid_age = "Your current age is invalid.";
constexpr int youngest_spouse = 35;
constexpr int least_age_difference = 10;
constexpr int oldest_for_joint_life = 90;

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

// Looks the single life expectancy up; false when the table does not have the age.
bool look_up_single(Module1& module) {
    Scenario& scenario = module.scenario;
    scenario.lookup_age = single_life_age(scenario, module.today());
    const auto end = single_life_expectancy(module.database(), scenario.lookup_age);
    if (end) {
        scenario.life_expectancy_age = *end;
    }
    return end.has_value();
}

bool look_up_joint(Module1& module) {
    Scenario& scenario = module.scenario;
    const JointAges ages = joint_life_ages(scenario);
    scenario.lookup_age = ages.participant;
    scenario.spouse_lookup_age = ages.spouse;
    const auto end =
        joint_life_expectancy(module.database(), scenario.lookup_age, scenario.spouse_lookup_age);
    if (end) {
        scenario.life_expectancy_age = *end;
    }
    return end.has_value();
}

void fill_life_expectancy(Scenario& scenario) {
    const double payments =
        std::floor((scenario.life_expectancy_age - scenario.lookup_age) * scenario.frequency);
    scenario.number_of_payments = static_cast<std::int16_t>(payments);
}

Check check_number(Module1& module, std::string_view text) {
    Scenario& scenario = module.scenario;
    const double number = std::round(read_unsigned(text).value_or(0.0));
    if (number < 1.0) {
        return Refusal{invalid_number, "txtnumber"};
    }
    constexpr double most = std::numeric_limits<std::int16_t>::max();
    scenario.number_of_payments = static_cast<std::int16_t>(std::min(number, most));
    if (!look_up_single(module)) {
        return Refusal{invalid_age, "txtnumber"};
    }
    if (payments_exceed_life(scenario.number_of_payments, scenario.frequency,
                             {scenario.lookup_age, scenario.life_expectancy_age})) {
        return Refusal{
            "The number of payments will exceed your life expectancy or result in an amount below your "
            "minimum distribution. Please reduce the number of payments!",
            "txtnumber"};
    }
    return std::nullopt;
}

Check check_amount(Module1& module, std::string_view text) {
    Scenario& scenario = module.scenario;
    const double amount = round_to_cents(get_num(text).value_or(0.0));
    if (amount == 0.0) {
        return Refusal{"Invalid dollar amount of payments", "txtfixamount"};
    }
    scenario.fixed_amount = std::min(amount, scenario.present_value);
    if (scenario.method == partial_lump_sum && scenario.fixed_amount >= scenario.partial_amount) {
        return std::nullopt;
    }
    if (!look_up_single(module)) {
        return Refusal{invalid_age, "txtfixamount"};
    }
    const double years = (scenario.present_value - scenario.partial_amount) /
                             (scenario.frequency * scenario.fixed_amount) +
                         scenario.lookup_age;
    if (years > scenario.life_expectancy_age) {
        return Refusal{
            "This amount will be below your minimum distribution or would result in payments beyond "
            "your "
            "life expectancy. Please increase the dollar amount!",
            "txtfixamount"};
    }
    return std::nullopt;
}

void check_life_expectancy(Module1& module, bool joint) {
    const bool found = joint ? look_up_joint(module) : look_up_single(module);
    if (found) {
        fill_life_expectancy(module.scenario);
    } else {
        module.report(joint ? enter_spouse : invalid_age);
    }
}

}  // namespace

std::int16_t payment_start_age(const Scenario& scenario) {
    const auto [month, year] = start_month(scenario);
    return age_at_payment(scenario.birth_date, month, year);
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

bool joint_life_available(Date birth, Date today) {
    return currentage(birth, today) <= oldest_for_joint_life;
}

SpouseCheck check_spouse(std::string_view mask_text, int participant_age, Date today) {
    SpouseCheck check;
    const auto birth = read_masked_date(mask_text);
    const int years = birth ? year_of(today) - year_of(*birth) : 0;
    if (years < 1 || years > 100) {
        check.message = enter_spouse;
        return check;
    }
    check.birth_date = birth;
    check.age = age_on_day(*birth, today);
    if (check.age < youngest_spouse) {
        check.message =
            "You can select Joint Life Expectancy only if your spouse is at least 35 years old, and is "
            "at "
            "least 10 years younger than you!";
    } else if (check.age >= participant_age - least_age_difference) {
        check.message =
            "You cannot select Joint Life Expectancy. It is an option only when your spouse is more "
            "than "
            "10 years younger than you.";
    }
    return check;
}

Check chk_fld(Module1& module, const LengthEntry& entry) {
    switch (entry.option) {
        case by_number_of_payments:
            return check_number(module, entry.number_text);
        case by_dollar_amount:
            return check_amount(module, entry.amount_text);
        case by_life_expectancy:
            check_life_expectancy(module, entry.joint);
            return std::nullopt;
        default:
            return Refusal{invalid_number, "optlength_0"};
    }
}

}  // namespace kelvar
