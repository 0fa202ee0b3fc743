// Payments by calendar year, for the charts.
#pragma once

#include <vector>

#include "core/records.h"

namespace kelvar {

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
