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

struct YearlyTotals {
    int first_year = 0;           // calendar year of the first row
    std::vector<double> amounts;  // one for each year up to that of the last row; 0 where none is paid
};

// Empty when there are no rows. Moves to the last row.
YearlyTotals yearly_totals(Recordset& schedule);

}  // namespace kelvar
