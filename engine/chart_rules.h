// What charts are drawn from: whether a schedule has one, its payments by calendar year, and the upper
// bound of the value axis, which starts at 0.
#pragma once

#include <string_view>
#include <vector>

#include "core/records.h"

namespace kelvar {

// Why a stored schedule, of at least one row, has no yearly chart; empty when it has one. Moves to the
// last row.
std::string_view refused_chart(Recordset& schedule);

// Sum of `payment` (dollars, rounded to cents) over all rows of `schedule` whose Year is `year`; 0 when
// there is none. The current row stays.
double get_amount(const Recordset& schedule, int year);

// What `schedule` comes to in each calendar year from that of its first to that of its last row.
struct YearlyTotals {
    int first_year = 0;
    std::vector<double> amounts;  // paid in it, dollars; 0 where nothing is
    // After the last payment up to its end: what remains (dollars), and that payment's month (1..12).
    std::vector<double> balances;
    std::vector<int> last_months;
};

// Empty when there are no rows. Moves to the last row.
YearlyTotals yearly_totals(Recordset& schedule);

// The bound for a largest value in dollars: rounded up to its first two digits, always to the next
// step, then to a whole number, at least 1: 123,456.78 and 120,000 give 130,000, 5.5 gives 6. A
// negative value counts as 0, and so does what is no number; an infinite one gives a finite bound.
double y_max(double largest);

}  // namespace kelvar
