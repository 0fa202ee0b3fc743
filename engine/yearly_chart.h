// The yearly chart of a schedule: when there can be one, and its payments by calendar year.
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

}  // namespace kelvar
