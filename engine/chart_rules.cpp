#include "engine/chart_rules.h"

#include <algorithm>
#include <cmath>

#include "core/dates.h"
#include "core/numbers.h"

namespace kelvar {

namespace {

constexpr double largest_bounded = 1e300;  // beyond it the reckoning below leaves the doubles

}  // namespace

std::string_view refused_chart(Recordset& schedule) {
    schedule.MoveFirst();
    const double first = schedule.number("Year");
    schedule.MoveLast();
    const double last = schedule.number("Year");
    return last - first + 1 == 1 ? "This chart is only available for distribution payments spread over "
                                   "two calendar years or longer."
                                 : "";
}

double get_amount(const Recordset& schedule, int year) {
    const std::size_t year_column = schedule.column("Year");
    const std::size_t payment_column = schedule.column("payment");
    double amount = 0.0;
    for (std::size_t row = 0; row < schedule.RecordCount(); ++row) {
        if (as_number(schedule.cell(row, year_column)) == year) {
            amount += as_number(schedule.cell(row, payment_column));
        }
    }
    return round_to_cents(amount);
}

YearlyTotals yearly_totals(Recordset& schedule) {
    YearlyTotals totals;
    if (schedule.RecordCount() == 0) {
        return totals;
    }
    schedule.MoveFirst();
    totals.first_year = static_cast<int>(schedule.number("Year"));
    schedule.MoveLast();
    const int last_year = static_cast<int>(schedule.number("Year"));
    const std::size_t year_column = schedule.column("Year");
    const std::size_t balance_column = schedule.column("remainbalance");
    const std::size_t month_column = schedule.column("Month");
    std::size_t row = 0;
    for (int year = totals.first_year; year <= last_year; ++year) {
        while (row + 1 < schedule.RecordCount() &&
               as_number(schedule.cell(row + 1, year_column)) <= year) {
            ++row;
        }
        totals.amounts.push_back(get_amount(schedule, year));
        totals.balances.push_back(as_number(schedule.cell(row, balance_column)));
        totals.last_months.push_back(month_number(as_text(schedule.cell(row, month_column))));
    }
    return totals;
}

double y_max(double largest) {
    const double value = largest > 0.0 ? std::min(largest, largest_bounded) : 0.0;
    double power = 10.0;  // 10 to the number of digits before the point
    while (power <= std::floor(value)) {
        power *= 10.0;
    }
    const double bound = std::floor((value * 100.0 + power) / power) * power / 100.0;
    return std::max(1.0, std::round(bound));
}

}  // namespace kelvar
