#include "engine/federal_minimum.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "core/life_tables.h"
#include "core/numbers.h"
#include "core/plan.h"

namespace kelvar {

namespace {

std::optional<double> divisor_in(int year, const Scenario& scenario, Database& database) {
    const int age = year - year_of(scenario.birth_date);
    return over_joint_life(scenario)
               ? joint_life_divisor(database, age, year - year_of(scenario.spouse_birth_date))
               : single_life_divisor(database, age);
}

bool is_marked(const YearRow& year) {
    return year.federal_minimum > 0.0;
}

}  // namespace

int federal_minimum_from(Date birth) {
    const auto& age = *std::ranges::find_if(
        plan::federal_ages, [&](const plan::FederalAge& row) { return birth < row.born_before; });
    return year_of(add_months(birth, age.months));
}

void mark_below_federal_minimum(std::vector<YearRow>& years, const Scenario& scenario,
                                const Projection& projection, Database& database) {
    const int from = federal_minimum_from(scenario.birth_date);
    double balance = projection.start_value;  // before the first payment of the year
    double paid_ahead = 0.0;                  // in the same year, as a lump sum
    for (std::size_t i = 0; i < years.size() && years[i].label != rounding_label; ++i) {
        YearRow& row = years[i];
        const bool lump = row.label == lump_sum_label;
        if (lump && years[i + 1].year == row.year) {
            paid_ahead = row.paid;
            continue;
        }
        if (const auto divisor = divisor_in(row.year, scenario, database);
            divisor && row.year >= from) {
            const double minimum = round_to_cents(balance / *divisor);
            row.federal_minimum = row.paid + paid_ahead < minimum ? minimum : 0.0;
        }
        paid_ahead = 0.0;
        balance = lump ? balance - row.paid : row.ending;
    }
}

std::string federal_minimum_text(const std::vector<YearRow>& years) {
    std::string when;
    double least = 0.0;
    int marked = 0;
    for (auto first = std::ranges::find_if(years, is_marked); first != years.end();) {
        const auto after = std::find_if_not(first, years.end(), is_marked);
        const int last_year = std::prev(after)->year;
        when += fmt::format("{}{}", when.empty() ? "" : ", ", first->year);
        if (last_year != first->year) {
            when += fmt::format(" to {}", last_year);
        }
        for (; first != after; ++first) {
            least = marked++ == 0 ? first->federal_minimum : std::min(least, first->federal_minimum);
        }
        first = std::find_if(after, years.end(), is_marked);
    }
    if (when.empty()) {
        return {};
    }
    return fmt::format(
        "* {}: less than the federal minimum of about {}{}; the plan must then pay more.", when,
        format_number(least, pattern::whole_dollars), marked > 1 ? " and more" : "");
}

}  // namespace kelvar
