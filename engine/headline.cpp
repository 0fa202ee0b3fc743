#include "engine/headline.h"

#include <fmt/format.h>

#include <algorithm>

#include "core/ages.h"
#include "core/plan.h"
#include "engine/result_texts.h"

namespace kelvar {

namespace {

std::string age_text(const Scenario& scenario, Date date) {
    return fmt::format("age {}", age_in_month(scenario.birth_date, date));
}

// "$734.30 a month from July, 2020"
std::string first_amount(const Scenario& scenario, const PaymentRow& first) {
    return fmt::format("{} a {} from {}", money_text(first.payment),
                       plan::frequency(scenario.frequency).period, month_year_text(first.date));
}

std::string fixed_amount_text(const Scenario& scenario, const PaymentSchedule& schedule) {
    const PaymentRow& last = schedule.rows.back();
    const int number = schedule.number_of_payments;
    return fmt::format(
        "{}, for {} ({}); last payment of {} in {}, {}.", first_amount(scenario, schedule.rows.front()),
        time_text(number * 12 / scenario.frequency), count_text(number, "payment"),
        money_text(last.payment), month_year_text(last.date), age_text(scenario, last.date));
}

std::string level_text(const Scenario& scenario, const PaymentSchedule& schedule) {
    const std::vector<PaymentRow>& rows = schedule.rows;
    const PaymentRow& last = rows.back();
    std::string text = first_amount(scenario, rows.front());
    const auto second_year = std::ranges::find_if(
        rows, [&](const PaymentRow& row) { return row.date.year() != rows.front().date.year(); });
    if (rows.end() - second_year == 1) {
        return text + fmt::format("; last payment of {} in {}, {}.", money_text(last.payment),
                                  month_year_text(last.date), age_text(scenario, last.date));
    }
    if (second_year != rows.end()) {
        text += fmt::format(", {} from {}", money_text(second_year->payment),
                            month_year_text(second_year->date));
        if (second_year->date.year() != last.date.year()) {
            text += fmt::format(", then a new amount each {}", month_name(month_of(second_year->date)));
        }
    }
    return text + fmt::format("; last payment {}, {}.", month_year_text(last.date),
                              age_text(scenario, last.date));
}

std::string payments_text(const Scenario& scenario, const PaymentSchedule& schedule) {
    const PaymentRow& first = schedule.rows.front();
    const PaymentRow& last = schedule.rows.back();
    if (schedule.rows.size() == 1) {
        return fmt::format("{} once in {}, {}.", money_text(first.payment), month_year_text(first.date),
                           age_text(scenario, first.date));
    }
    if (schedule.rows.size() == 2) {
        return fmt::format("{} in {} and {} in {}, {}.", money_text(first.payment),
                           month_year_text(first.date), money_text(last.payment),
                           month_year_text(last.date), age_text(scenario, last.date));
    }
    if (first.payment == 0.0) {
        return fmt::format("{} in all, too little for a cent a {}; last payment {}, {}.",
                           money_text(schedule.total_paid), plan::frequency(scenario.frequency).period,
                           month_year_text(last.date), age_text(scenario, last.date));
    }
    return scenario.length_option == by_dollar_amount ? fixed_amount_text(scenario, schedule)
                                                      : level_text(scenario, schedule);
}

}  // namespace

std::string headline(const Scenario& scenario, const Projection& projection) {
    if (projection.outcome != Outcome::complete) {
        return {};
    }
    const Date first = projection.dates.first.date;
    std::string text = "Estimate at " + rate_text(projection.rate, lump_sum);
    if (scenario.method == lump_sum) {
        return text + fmt::format(": {} at once in {}, {}.", money_text(projection.lump_sum),
                                  month_year_text(first), age_text(scenario, first));
    }
    const bool partial = scenario.method == partial_lump_sum;
    const bool over_life = scenario.length_option == by_life_expectancy;
    if (partial) {
        text +=
            fmt::format(": {} in {}, then", money_text(projection.lump_sum), month_year_text(first));
    }
    if (over_life) {
        text += fmt::format("{} over your {}", partial ? "" : ",", table_name(scenario));
    }
    text += partial && !over_life ? " " : ": ";
    return text + payments_text(scenario, projection.schedule);
}

}  // namespace kelvar
