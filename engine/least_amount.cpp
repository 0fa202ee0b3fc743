#include "engine/least_amount.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>

#include "core/first_that.h"
#include "core/numbers.h"
#include "core/plan.h"
#include "engine/result_texts.h"

namespace kelvar {

namespace {

bool is_known(const Scenario& scenario, Date today) {
    return scenario.method >= periodic_payments && scenario.length_option == by_dollar_amount &&
           !plan::frequency(scenario.frequency).name.empty() && scenario.life_expectancy_age > 0.0 &&
           !month_has_passed(scenario.first_pay_month, scenario.first_pay_year, today) &&
           (scenario.method != partial_lump_sum ||
            !month_has_passed(scenario.scenario_month, scenario.scenario_year, today));
}

}  // namespace

std::optional<double> least_complete_amount(const Scenario& scenario, double rate, Date today) {
    if (!is_known(scenario, today)) {
        return std::nullopt;
    }
    Scenario tried = scenario;
    tried.fixed_amount = largest_amount;
    const Projection at_once = project(tried, rate, today);
    if (at_once.outcome != Outcome::complete) {
        return std::nullopt;
    }
    const double balance = at_once.schedule.rows.front().startbalance;
    const std::int64_t least =
        first_that(static_cast<std::int64_t>(whole_cents(balance).count), [&](std::int64_t cents) {
            tried.fixed_amount = static_cast<double>(cents) / 100.0;
            return project(tried, rate, today).outcome == Outcome::complete;
        });
    return static_cast<double>(least) / 100.0;
}

std::string least_amount_text(const Scenario& scenario, const std::vector<double>& rates, Date today) {
    if (rates.empty()) {
        return {};
    }
    const auto [lowest, highest] = std::ranges::minmax(rates);
    std::string text;
    for (const double rate : std::set{lowest, highest}) {
        const auto amount = least_complete_amount(scenario, rate, today);
        if (!amount) {
            continue;
        }
        const std::string period =
            text.empty() ? fmt::format(" a {}", plan::frequency(scenario.frequency).period) : "";
        text += fmt::format("{}{}{} at {}", text.empty() ? "To end in time it takes " : " and ",
                            money_text(*amount), period, rate_text(rate, lump_sum));
    }
    return text.empty() ? text : text + '.';
}

std::string no_result_text(const Scenario& scenario, Outcome outcome, double rate, Date today) {
    std::string text(no_result_text(outcome));
    if (outcome == Outcome::limit_exceeded) {
        text += ' ' + least_amount_text(scenario, {rate}, today);
    }
    return text;
}

}  // namespace kelvar
