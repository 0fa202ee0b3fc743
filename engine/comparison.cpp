#include "engine/comparison.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "core/ages.h"
#include "core/numbers.h"
#include "core/plan.h"
#include "engine/result_texts.h"
#include "engine/years.h"

namespace kelvar {

namespace {

double amount_in_last_full_year(const PaymentSchedule& schedule, const std::vector<YearRow>& years,
                                int frequency) {
    const auto full = std::find_if(years.rbegin(), years.rend(),
                                   [&](const YearRow& year) { return year.payments == frequency; });
    if (full == years.rend()) {
        return 0.0;
    }
    const auto row = std::ranges::find_if(
        schedule.rows, [&](const PaymentRow& payment) { return year_of(payment.date) == full->year; });
    return row->payment;
}

// "$12.20 more"
std::string change(double dollars) {
    if (dollars == 0.0) {
        return "the same";
    }
    return fmt::format("{} {}", money_text(std::abs(dollars)), dollars < 0.0 ? "less" : "more");
}

ComparedRate compared(const Scenario& scenario, double rate, Date today) {
    const Projection projection = project(scenario, rate, today);
    ComparedRate column{.rate = rate, .outcome = projection.outcome};
    if (projection.outcome != Outcome::complete) {
        return column;
    }
    const PaymentSchedule& schedule = projection.schedule;
    const PaymentRow& last = schedule.rows.back();
    const std::vector<YearRow> years = years_of(projection, scenario.birth_date, scenario.fee_amount);
    column.first_value = schedule.rows.front().startbalance;
    column.first_amount = schedule.rows.front().payment;
    column.full_year_amount = amount_in_last_full_year(schedule, years, scenario.frequency);
    column.payments = schedule.number_of_payments;
    column.last_payment = last.date;
    column.last_age = age_in_month(scenario.birth_date, last.date);
    column.earnings = projection.ledger.earnings;
    column.fees = projection.ledger.fees;
    column.total = projection.total_paid;
    for (const YearRow& year : years) {
        if (year.label.empty()) {
            column.balances.push_back(year.ending);
        }
    }
    return column;
}

}  // namespace

std::vector<LumpSumValue> lump_sum_values(const Scenario& scenario, Date today) {
    std::vector<LumpSumValue> values;
    for (const double rate : scenario.selected_rates) {
        const double value = project(scenario, rate, today).start_value;
        values.push_back({rate, value, round_to_cents(value - scenario.present_value)});
    }
    return values;
}

RateTexts rate_texts(const ComparedRate& rate, bool plain) {
    RateTexts texts{rate_text(rate.rate, lump_sum)};
    if (rate.outcome != Outcome::complete) {
        texts[1] = no_result_text(rate.outcome);
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

Comparison compare(const Scenario& scenario, Date today) {
    Comparison comparison;
    comparison.today = today;
    for (const double rate : scenario.selected_rates) {
        comparison.rates.push_back(compared(scenario, rate, today));
    }
    const Commencement dates = commencement(scenario, today);
    comparison.first_year =
        year_of(scenario.method == partial_lump_sum ? dates.second_date : dates.first.date);
    return comparison;
}

std::string spread_text(const Scenario& scenario, const Comparison& comparison) {
    std::vector<const ComparedRate*> complete;
    for (const ComparedRate& rate : comparison.rates) {
        if (rate.outcome == Outcome::complete) {
            complete.push_back(&rate);
        }
    }
    if (complete.size() < 2) {
        return {};
    }
    const ComparedRate& low = **std::ranges::min_element(complete, {}, &ComparedRate::rate);
    const ComparedRate& high = **std::ranges::max_element(complete, {}, &ComparedRate::rate);
    if (low.rate == high.rate) {
        return {};
    }
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
    return text + fmt::format("; {} also means more risk.", rate_text(high.rate, lump_sum));
}

}  // namespace kelvar
