#include "output/result/summary_texts.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

#include "core/ages.h"
#include "core/numbers.h"
#include "core/plan.h"
#include "engine/comparison.h"
#include "engine/explanation.h"
#include "engine/least_amount.h"
#include "engine/result_texts.h"
#include "input/rules/limits.h"

namespace kelvar {

namespace {

std::string period_of(const Scenario& scenario) {
    return std::string(plan::frequency(scenario.frequency).period);
}

std::string at_age(const Scenario& scenario, Date date) {
    return fmt::format("{}, age {}", month_year_text(date), age_in_month(scenario.birth_date, date));
}

// What it comes to, and how often, which stays on one line.
std::pair<std::string, std::string> figure(const Scenario& scenario, const Projection& projection) {
    if (scenario.method == lump_sum) {
        return {money_text(projection.lump_sum), "once"};
    }
    const std::vector<PaymentRow>& rows = projection.schedule.rows;
    if (rows.front().payment == 0.0) {  // too little for a cent each time
        return {money_text(projection.schedule.total_paid), "in\u00a0all"};
    }
    const std::string amount = money_text(rows.front().payment);
    switch (rows.size()) {
        case 1:
            return {amount, "once"};
        case 2:
            return {amount, "at\u00a0first"};
        default:
            return {amount, "a\u00a0" + period_of(scenario)};
    }
}

std::string figure_note(const Scenario& scenario, const Projection& projection) {
    const bool once = scenario.method == lump_sum || projection.schedule.rows.size() == 1;
    const bool same = scenario.length_option == by_dollar_amount;
    const bool two = !once && projection.schedule.rows.size() == 2;
    return std::string(once   ? "Your payment"
                       : two  ? "The first of two payments"
                       : same ? "Your payments"
                              : "Your first payments") +
           ", estimated, before taxes";
}

std::vector<NamedTexts> facts(const Scenario& scenario, const Projection& projection) {
    std::vector<NamedTexts> facts;
    const auto add = [&](const char* fact, const std::string& value) {
        facts.push_back({{"fact", fact}, {"value", value}});
    };
    const Date first = projection.dates.first.date;
    if (scenario.method == lump_sum) {
        add("Paid in", at_age(scenario, first));
        add("Balance today", money_text(projection.ledger.opening));
        add("Total pay-back", money_text(projection.total_paid));
        return facts;
    }
    const std::vector<PaymentRow>& rows = projection.schedule.rows;
    if (scenario.method == partial_lump_sum) {
        add("Lump sum",
            fmt::format("{} in {}", money_text(projection.lump_sum), month_year_text(first)));
    }
    add("First payment", at_age(scenario, rows.front().date));
    add("Last payment", at_age(scenario, rows.back().date));
    const std::string total = money_text(projection.total_paid);
    add("Total pay-back",
        scenario.method == partial_lump_sum
            ? total
            : fmt::format("{}, {}", total, count_text(static_cast<int>(rows.size()), "payment")));
    return facts;
}

// From today's balance to what the first payment, or a lump sum that is all, is made of.
std::string way_to_first_value(const Scenario& scenario, const Projection& projection) {
    const Ledger& ledger = projection.ledger;
    const bool all = scenario.method == lump_sum;
    const bool partial = scenario.method == partial_lump_sum;
    const double earned = all ? ledger.earnings + ledger.rounding : ledger.earnings_before;
    const Date when = partial ? projection.dates.second_date : projection.dates.first.date;
    std::string text = fmt::format("{} today {} {} earnings - {} fees", money_text(ledger.opening),
                                   earned < 0.0 ? "-" : "+", money_text(std::abs(earned)),
                                   money_text(all ? ledger.fees : ledger.fees_before));
    if (partial) {
        text += fmt::format(" - {} lump sum", money_text(projection.lump_sum));
    }
    const double value = all       ? projection.lump_sum
                         : partial ? projection.second_value
                                   : projection.start_value;
    return text + fmt::format(" = {} in {}.", money_text(value), month_year_text(when));
}

std::vector<NamedTexts> why(const Scenario& scenario, const Projection& projection) {
    std::vector<NamedTexts> why;
    const auto add = [&](const std::string& sentence) { why.push_back({{"sentence", sentence}}); };
    add(way_to_first_value(scenario, projection));
    if (scenario.method == lump_sum) {
        return why;
    }
    const PaymentSchedule& schedule = projection.schedule;
    const std::size_t last = schedule.rows.size() - 1;
    add(amount_explanation(scenario, schedule, 0));
    if (scenario.length_option == by_dollar_amount) {
        if (last > 0) {
            add(amount_explanation(scenario, schedule, last));
        }
        return why;
    }
    std::size_t next = 1;
    while (next <= last && !begins_year(schedule, next)) {
        ++next;
    }
    if (next < last) {
        const double change = schedule.rows[next].payment - schedule.rows.front().payment;
        add(amount_explanation(scenario, schedule, next) +
            (change > 0.0   ? " It has earned more than the fees."
             : change < 0.0 ? " It has not earned the fees."
                            : ""));
    }
    if (last > 0) {
        add(fmt::format("{}The last payment, {}, is all that is left.",
                        next < last ? "Each calendar year begins with such a division. " : "",
                        money_text(schedule.rows[last].payment)));
    }
    return why;
}

void add_chosen(ReportValues& values, const Scenario& scenario, const Projection& projection,
                Database& database) {
    const auto add = [&](const char* what, const std::string& chosen, const std::string& possible) {
        values.chosen.push_back({{"what", what}, {"chosen", chosen}, {"possible", possible}});
    };
    const Date today = projection.today;
    add("Rate of return", rate_text(projection.rate, lump_sum) + " a year, the same in all years", "");
    const Date first = projection.dates.first.date;
    const auto latest = latest_first_month(scenario.birth_date, today);
    const bool can_wait = latest && *latest > first;
    const std::string wait = can_wait ? "at the latest " + month_year_text(*latest) : "";
    if (scenario.method == partial_lump_sum) {
        const auto least = least_partial_amount(scenario, database, today);
        const std::string limit = least ? "at least " + money_text(*least) : "";
        add("Lump sum",
            fmt::format("{} in {}", money_text(projection.lump_sum), month_year_text(first)),
            limit + (limit.empty() || wait.empty() ? "" : ", ") + wait);
    } else {
        add(scenario.method == lump_sum ? "Lump sum" : "First payment", month_year_text(first), wait);
    }
    if (scenario.method == lump_sum) {
        return;
    }
    const std::string period = period_of(scenario);
    if (scenario.length_option == by_dollar_amount) {
        // What Next accepts, and what ends in time at this rate.
        const auto least = std::max(least_amount(scenario, database, today),
                                    least_complete_amount(scenario, projection.rate, today));
        add("Length of payments",
            fmt::format("{} a {} until it is used up", money_text(scenario.fixed_amount), period),
            least ? fmt::format("at least {} a {}", money_text(*least), period) : "");
    } else {
        const auto most = most_payments(scenario, database, today);
        add("Length of payments",
            fmt::format("{}, {}", count_text(projection.schedule.number_of_payments, "payment"),
                        scenario.length_option == by_life_expectancy
                            ? "over " + std::string(table_name(scenario))
                            : "a number that you chose"),
            most ? fmt::format("as a number, up to {}", *most) : "");
    }
    if (!values.life.empty()) {
        add("Divisor",
            fmt::format("{} years at age {}{}: {}", values.divisor, values.life_age,
                        values.spouse_age.empty() ? "" : ", spouse " + values.spouse_age, values.table),
            "");
    }
}

// Payments that end a year or more before the years of the table do.
std::string until_text(const ReportValues& values, const Scenario& scenario,
                       const Projection& projection) {
    if (values.life.empty() || scenario.length_option == by_life_expectancy ||
        projection.schedule.rows.size() == 1) {
        return {};
    }
    const int last = age_in_month(scenario.birth_date, projection.schedule.rows.back().date);
    if (last + 1.0 > scenario.life_expectancy_age) {
        return {};
    }
    return fmt::format("The account is used up at {}; the table counts on {:.0f}.", last,
                       scenario.life_expectancy_age);
}

// The next higher of the chosen rates, else the next lower one, makes this difference.
std::string another_rate_text(const Scenario& scenario, const Projection& projection) {
    std::vector<double> rates = scenario.selected_rates;
    std::ranges::sort(rates);
    const auto higher = std::ranges::upper_bound(rates, projection.rate);
    const auto same = std::ranges::lower_bound(rates, projection.rate);
    if (higher == rates.end() && same == rates.begin()) {
        return {};
    }
    const double other = higher != rates.end() ? *higher : *std::prev(same);
    Scenario both = scenario;
    both.selected_rates = {std::min(projection.rate, other), std::max(projection.rate, other)};
    if (scenario.method != lump_sum) {
        const Comparison compared = compare(both, projection.today);
        const auto without = std::ranges::find_if(
            compared.rates, [](const ComparedRate& rate) { return rate.outcome != Outcome::complete; });
        return without == compared.rates.end()
                   ? spread_text(both, compared)
                   : fmt::format("{}: {}", rate_text(without->rate, lump_sum), without->reason);
    }
    const std::vector<LumpSumValue> values = lump_sum_values(both, projection.today);
    return fmt::format(
        "If it earned {1} every year instead of {0}, you would be paid {2} more; {1} also "
        "means more risk.",
        rate_text(values[0].rate, lump_sum), rate_text(values[1].rate, lump_sum),
        money_text(values[1].value - values[0].value));
}

void add_words(ReportValues& values, const Scenario& scenario, const Projection& projection) {
    const auto add = [&](const char* word, const std::string& meaning) {
        values.words.push_back({{"word", word}, {"meaning", meaning}});
    };
    add("Rate of return",
        "What the account is assumed to earn in a year. Nobody knows what it will earn.");
    if (scenario.method == lump_sum) {
        add("Annual fee", fee_text(scenario.fee_amount) + " a year. " + values.fee_note);
        return;
    }
    add("Annual fee",
        fmt::format("{} a year, charged by the day; between payments only where growth covers it.",
                    fee_text(scenario.fee_amount)));
    if (!values.life.empty()) {
        add(values.life.c_str(),
            over_joint_life(scenario)
                ? "How many years a federal table counts on until neither you nor your spouse lives. "
                  "It is an average; you may live longer."
            : scenario.lookup_age < plan::minimum_distribution_from
                ? "How many years a federal table counts on at your age. It is an average; you may "
                  "live longer."
                : "Over how many years federal law spreads an account from your age on. They are more "
                  "than your life expectancy.");
        add("Divisor", scenario.length_option == by_life_expectancy
                           ? fmt::format("These years. {} years of {} a year are {}.", values.divisor,
                                         count_text(scenario.frequency, "payment"),
                                         count_text(scenario.number_of_payments, "payment"))
                           : "These years. Your payments may not last longer.");
    }
    const std::vector<PaymentRow>& rows = projection.schedule.rows;
    if (scenario.length_option != by_dollar_amount &&
        rows.front().date.year() != rows.back().date.year()) {
        add("Recalculation",
            "Each calendar year, before its first payment, the balance is divided anew by the "
            "number of payments that are left.");
    }
    if (projection.ledger.rounding != 0.0) {
        add("Rounding", "Every payment is in whole cents. What cents leave over is named by itself.");
    }
}

struct NotWorkedOut {
    const char* line;
    bool of_lump_sum;  // concerns it as well
};
constexpr NotWorkedOut not_worked_out[] = {
    {"Taxes, and the 10% penalty that some payments cost.", true},
    {"Each year's exact federal minimum; the plan must pay it if your payments are less.", false},
    {"What becomes of the rest at your death or after a divorce, and what heirs are paid.", true},
    {"Whether you may change or stop payments later.", false},
    {"Whether you may roll the money over; Roth money.", true},
    {"Rising prices, good and bad years, and the costs of the funds themselves.", true}};

}  // namespace

void add_summary(ReportValues& values, const Scenario& scenario, const Projection& projection,
                 Database& database) {
    std::tie(values.figure, values.figure_period) = figure(scenario, projection);
    values.figure_note = figure_note(scenario, projection);
    values.facts = facts(scenario, projection);
    values.why = why(scenario, projection);
    add_chosen(values, scenario, projection, database);
    values.until = until_text(values, scenario, projection);
    values.another_rate = another_rate_text(scenario, projection);
    add_words(values, scenario, projection);
    for (const auto& [line, of_lump_sum] : not_worked_out) {
        if (scenario.method != lump_sum || of_lump_sum) {
            values.not_worked_out.push_back({{"line", line}});
        }
    }
}

}  // namespace kelvar
