// The lump sum projection: one payment at the first payment date.
#pragma once

namespace kelvar {

// Value of the account (dollars) after `days` days (0 or more) at `rate` percent per year, less a
// prorated fee; rounded to cents. The fee of this projection is 50 dollars a year, whatever yearly fee
// the screen shows.
double get_startvalue(double present_value, double rate, int days);

}  // namespace kelvar
