#include "engine/prices.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "core/numbers.h"
#include "core/plan.h"
#include "engine/result_texts.h"

namespace kelvar {

namespace {

constexpr int most_years_ahead = 20;  // of the dollar

double rise(int percent, int years) {
    return std::pow(1.0 + percent / 100.0, years);
}

}  // namespace

double dollars_needed(double dollars, int percent, int years) {
    return round_to_cents(dollars * rise(percent, years));
}

double dollars_worth(double dollars, int percent, int years) {
    return round_to_cents(dollars / rise(percent, years));
}

std::string price_text(const Scenario& scenario, const Projection& projection, int percent) {
    const PaymentRow* row = projection.outcome == Outcome::complete
                                ? last_full_year(projection.schedule, scenario.frequency)
                                : nullptr;
    const int today = year_of(projection.today);
    if (row == nullptr || year_of(row->date) == today) {
        return {};
    }
    const int years = year_of(row->date) - today;
    const int years_of_dollar = std::min(years, most_years_ahead);
    return fmt::format(
        "At {}% a year, what $1.00 buys today takes {} in {}; the {} a {} of {} would buy what {} buys "
        "today.",
        percent, money_text(dollars_needed(1.0, percent, years_of_dollar)), today + years_of_dollar,
        money_text(row->payment), plan::frequency(scenario.frequency).period, year_of(row->date),
        money_text(dollars_worth(row->payment, percent, years)));
}

}  // namespace kelvar
