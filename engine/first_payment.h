// The date of the first payment, and what the account is worth on it, also where a lump sum is all.
// Growth and fee from today on.
#pragma once

#include "core/dates.h"

namespace kelvar {

struct FirstPayment {
    Date date{no_date};
    bool starts_this_month = false;
};

// Today when the month is the present one, else today's day in that month, clamped to its last day.
FirstPayment first_payment(Date today, int month, int year);

// True for a month before the one of today, in which no payment can begin any more.
bool month_has_passed(int month, int year, Date today);

// Value at the first payment (dollars; `rate` in percent, `fee` in dollars per year): untouched, but
// for rounding to cents, when payments start this month.
double value_at_first_payment(double present_value, double rate, double fee, Date today,
                              const FirstPayment& first);

// Value of the account (dollars) when a lump sum is paid after `days` days (0 or more) at `rate`
// percent per year, less a prorated fee; rounded to cents. The fee of this projection is 50 dollars a
// year, whatever yearly fee the screen shows.
double get_startvalue(double present_value, double rate, int days);

}  // namespace kelvar
