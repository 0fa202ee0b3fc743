#include "engine/comparison.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>

#include "core/ages.h"
#include "core/numbers.h"
#include "core/plan.h"
#include "engine/least_amount.h"
#include "engine/result_texts.h"
#include "engine/years.h"

namespace kelvar {

namespace {

// "$12.20 more"
std::string change(double dollars) {
    if (dollars == 0.0) {
        return "the same";
    }
    return fmt::format("{} {}", money_text(std::abs(dollars)), dollars < 0.0 ? "less" : "more");
}

std::vector<double> balances_of(const Scenario& scenario, const Projection& projection) {
    std::vector<double> balances;
    for (const YearRow& year : years_of(projection, scenario.birth_date, scenario.fee_amount)) {
        if (year.label.empty()) {
            balances.push_back(year.ending);
        }
    }
    return balances;
}

}  // namespace

ComparedRate compared(const Scenario& scenario, const Projection& projection) {
    ComparedRate column{.rate = projection.rate};
    column.outcome = projection.outcome;
    column.reason = no_result_text(scenario, projection.outcome, projection.rate, projection.today);
    if (projection.outcome != Outcome::complete) {
        return column;
    }
    const PaymentSchedule& schedule = projection.schedule;
    const bool at_once = schedule.rows.empty();
    column.first_value = at_once ? projection.start_value : schedule.rows.front().startbalance;
    column.first_amount = at_once ? projection.lump_sum : schedule.rows.front().payment;
    const PaymentRow* full_year = at_once ? nullptr : last_full_year(schedule, scenario.frequency);
    column.full_year_amount = full_year != nullptr ? full_year->payment : 0.0;
    column.payments = at_once ? 1 : schedule.number_of_payments;
    column.last_payment = at_once ? projection.dates.first.date : schedule.rows.back().date;
    column.last_age = age_in_month(scenario.birth_date, column.last_payment);
    column.earnings = projection.ledger.earnings;
    column.fees = projection.ledger.fees;
    column.total = projection.total_paid;
    return column;
}

std::vector<LumpSumValue> lump_sum_values(const Scenario& scenario, Date today) {
    std::vector<LumpSumValue> values;
    for (const double rate : scenario.selected_rates) {
        const double value = project(scenario, rate, today).start_value;
        values.push_back({rate, value, round_to_cents(value - scenario.present_value)});
    }
    return values;
}

RateTexts rate_texts(const ComparedRate& rate, bool plain) {
    RateTexts texts{rate_text(rate.rate, lump_sum) + (rate.fallen ? " after a fall" : "")};
    if (rate.outcome != Outcome::complete) {
        texts[1] = rate.reason;
        return texts;
    }
    const auto money = [&](double dollars) {
        return format_number(dollars, plain ? pattern::plain_amount : pattern::dollars);
    };
    return {texts[0],
            money(rate.first_value),
            money(rate.first_amount),
            rate.full_year_amount != 0.0 ? money(rate.full_year_amount) : "",
            std::to_string(rate.payments),
            fmt::format("{}/{}", month_of(rate.last_payment), year_of(rate.last_payment)),
            std::to_string(rate.last_age),
            money(rate.earnings),
            money(rate.fees),
            money(rate.total)};
}

Scenario after_fall(Scenario scenario) {
    scenario.present_value = round_to_cents(scenario.present_value * 4.0 / 5.0);
    return scenario;
}

Comparison compare(const Scenario& scenario, Date today, const WhatIf& what_if) {
    Comparison comparison;
    comparison.today = today;
    const auto add = [&](const Scenario& of, double rate, bool added, bool fallen) {
        const Projection projection = project(of, rate, today);
        ComparedRate row = compared(of, projection);
        row.added = added;
        row.fallen = fallen;
        if (row.outcome == Outcome::complete) {
            row.balances = balances_of(of, projection);
        }
        comparison.rates.push_back(row);
    };
    const auto add_both = [&](double rate, bool added) {
        add(scenario, rate, added, false);
        if (what_if.falls) {
            add(after_fall(scenario), rate, added, true);
        }
    };
    for (const double rate : scenario.selected_rates) {
        add_both(rate, false);
    }
    if (what_if.earns_nothing && std::ranges::count(scenario.selected_rates, 0.0) == 0) {
        add_both(0.0, true);
    }
    const Commencement dates = commencement(scenario, today);
    comparison.first_year =
        year_of(scenario.method == partial_lump_sum ? dates.second_date : dates.first.date);
    return comparison;
}

std::string spread_text(const Scenario& scenario, const Comparison& comparison) {
    std::map<double, const ComparedRate*> chosen;
    for (const ComparedRate& rate : comparison.rates) {
        if (rate.outcome == Outcome::complete && !rate.added && !rate.fallen) {
            chosen.emplace(rate.rate, &rate);
        }
    }
    if (chosen.size() < 2) {
        return {};
    }
    const ComparedRate& low = *chosen.begin()->second;
    const ComparedRate& high = *chosen.rbegin()->second;
    std::string text =
        fmt::format("If it earned {} every year instead of {}, you would be paid {} in all",
                    rate_text(high.rate, lump_sum), rate_text(low.rate, lump_sum),
                    change(round_to_cents(high.total - low.total)));
    if (const int longer = high.payments - low.payments; longer != 0) {
        text += fmt::format(", and payments would end {} {}",
                            time_text(std::abs(longer) * 12 / scenario.frequency),
                            longer > 0 ? "later" : "earlier");
    }
    const double first = high.first_amount - low.first_amount;
    if (first != 0.0 && std::max(high.payments, low.payments) > 1) {
        text += fmt::format(", {} a {} at first", change(first),
                            plan::frequency(scenario.frequency).period);
    }
    std::string steps;
    for (auto from = chosen.begin(), to = std::next(from); chosen.size() > 2 && to != chosen.end();
         ++from, ++to) {
        steps += fmt::format("{} {} instead of {} makes {}", steps.empty() ? " In all," : ",",
                             rate_text(to->first, lump_sum), rate_text(from->first, lump_sum),
                             change(round_to_cents(to->second->total - from->second->total)));
    }
    return text + fmt::format("; {} also means more risk.", rate_text(high.rate, lump_sum)) + steps +
           (steps.empty() ? "" : ".");
}

}  // namespace kelvar
