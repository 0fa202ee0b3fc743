#include "input/rules/distribution_rules.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

#include "core/numbers.h"
#include "input/rules/ages.h"
#include "input/rules/life_tables.h"
#include "input/rules/participant_rules.h"

namespace kelvar {

namespace {

constexpr std::string_view no_frequency =
    "Invalid periodic payments selection. Select frequency of period payments.";
constexpr int last_month_of_deadline = 3;
constexpr int minimum_distribution_age = 70;
constexpr int oldest_commencement = 100;

std::vector<int> numbers(int first, int last) {
    std::vector<int> all(static_cast<std::size_t>(std::max(0, last - first + 1)));
    std::iota(all.begin(), all.end(), first);
    return all;
}

// The calendar year by which periodic payments must have started; a year later when the first payment
// itself is only made then.
int last_scenario_year(const Scenario& scenario, Date today) {
    if (cmp_birth(scenario.birth_date, today)) {
        const int last = year_of(today) + 1;
        return scenario.current_age >= 71 && scenario.first_pay_year == last ? last + 1 : last;
    }
    const int last = year_of(age_seventy_and_a_half(scenario.birth_date)) + 1;
    return scenario.first_pay_year == last ? last + 1 : last;
}

// The payments begin at or after the end of the life expectancy: refused from age 70 on, a question
// before. Nothing when the age at the commencement is below it; `accepted` when the user insists.
struct BeyondLife {
    Check refusal;
    bool accepted = false;
};

BeyondLife check_beyond_life(Module1& module, int commencement_age) {
    if (commencement_age < module.scenario.life_expectancy_age) {
        return {};
    }
    if (commencement_age >= minimum_distribution_age) {
        return {.refusal = Refusal{
                    "Your selection will result in distribution payments beyound your life expectancy",
                    "cmbscnyear"}};
    }
    if (module.ask("Your selection will result in distribution payments beyond your life expectancy. "
                   "Do you wish to re-enter your selection?")) {
        return {.refusal = Refusal{"", "cmbscnyear"}};
    }
    if (commencement_age > oldest_commencement) {
        return {.refusal = Refusal{"Your selection will result in payments beyond age 100. "
                                   "Please re-enter your selection",
                                   "cmbscnyear"}};
    }
    return {.refusal = std::nullopt, .accepted = true};
}

Check check_minimum_distribution(Module1& module) {
    const Scenario& scenario = module.scenario;
    const auto first_payment_date = real_date(scenario.first_pay_year, scenario.first_pay_month, 1);
    const bool due = first_payment_date >= age_seventy_and_a_half(scenario.birth_date);
    if (!due || scenario.scenario_year <= scenario.first_pay_year) {
        return std::nullopt;
    }
    const int age =
        age_in_month(scenario.birth_date, scenario.first_pay_month, scenario.first_pay_year);
    const auto divisor = single_life_divisor(module.database(), age);
    if (divisor && scenario.partial_amount < scenario.present_value / *divisor) {
        return Refusal{
            "Your partial amount certain will be below your minimum distribution for that year!",
            "txtpartial"};
    }
    return std::nullopt;
}

}  // namespace

std::int16_t frequency_of_box(int index) {
    constexpr std::array<std::int16_t, 4> frequencies{12, 4, 2, 1};
    return frequencies.at(static_cast<std::size_t>(index));
}

std::optional<double> read_partial_amount(std::string_view text) {
    const auto amount = read_entry(text);
    const bool valid = amount && std::abs(*amount) <= largest_amount;
    return valid ? std::optional{round_to_cents(*amount)} : std::nullopt;
}

std::optional<double> read_percentage(std::string_view text) {
    const auto percentage = read_entry(text);
    return percentage > 0.0 && percentage < 100.0 ? percentage : std::nullopt;
}

double amount_of_percentage(double present_value, double percentage) {
    return round_to_cents(present_value * percentage / 100.0);
}

std::string percentage_of_amount(double present_value, double partial_amount) {
    return format_number(partial_amount / present_value * 100.0, pattern::percentage);
}

Check partial_msg(const Scenario& scenario) {
    if (scenario.partial_amount > 0.0 && scenario.partial_amount < scenario.present_value) {
        return std::nullopt;
    }
    return Refusal{"Invalid partial lump sum amount.", "txtpartial"};
}

std::vector<int> scenario_years(const Scenario& scenario, Date today) {
    if (year_of(scenario.birth_date) < 1900) {
        return {};
    }
    const int last = last_scenario_year(scenario, today);
    const bool next_year = scenario.first_pay_month == 12 && scenario.first_pay_year < last;
    return numbers(scenario.first_pay_year + (next_year ? 1 : 0), last);
}

std::vector<int> scenario_months(const Scenario& scenario, int chosen_year, Date today) {
    const int last_year = last_scenario_year(scenario, today);
    if (chosen_year < scenario.first_pay_year || chosen_year > last_year) {
        return {};
    }
    const int first = chosen_year == scenario.first_pay_year ? scenario.first_pay_month + 1 : 1;
    return numbers(first, chosen_year == last_year ? last_month_of_deadline : 12);
}

Check check_commencement(const Scenario& scenario, Date today) {
    // Offered are only months after the first payment.
    const std::vector<int> months = scenario_months(scenario, scenario.scenario_year, today);
    if (std::ranges::find(months, scenario.scenario_month) != months.end()) {
        return std::nullopt;
    }
    return Refusal{invalid_month, "cmbscnyear"};
}

Check check_periodic(const Scenario& scenario) {
    return scenario.frequency == 0 ? Check{Refusal{no_frequency, "chkperiod_0"}} : std::nullopt;
}

Check check_partial(Module1& module, std::string_view partial_text) {
    Scenario& scenario = module.scenario;
    const Date today = module.today();
    if (!read_partial_amount(partial_text)) {
        return Refusal{"Invalid partial amount certain!", "txtpartial"};
    }
    if (const Check check = partial_msg(scenario)) {
        return check;
    }
    if (scenario.frequency == 0) {
        return Refusal{no_frequency, "chkpartial_0"};
    }
    scenario.current_age = age_in_month(scenario.birth_date, month_of(today), year_of(today));
    scenario.lookup_age = participant_lookup_age(scenario, today);
    if (const auto end = single_life_expectancy(module.database(), scenario.lookup_age)) {
        scenario.life_expectancy_age = *end;
    }
    // Only the year is replaced: the month stays the present one.
    const int commencement_age =
        age_in_month(scenario.birth_date, month_of(today), scenario.scenario_year);
    const BeyondLife beyond = check_beyond_life(module, commencement_age);
    if (beyond.refusal || beyond.accepted) {
        return beyond.refusal;
    }
    const bool later = scenario.scenario_year > scenario.first_pay_year ||
                       (scenario.scenario_year == scenario.first_pay_year &&
                        scenario.scenario_month > scenario.first_pay_month);
    if (!later) {
        return Refusal{
            "Periodic payments cannot commence prior to the initial partial lump sum (first payment) "
            "date!",
            "cmbscnyear"};
    }
    return check_minimum_distribution(module);
}

}  // namespace kelvar
