// The date of the first payment, and what the account is worth on it. Growth and fee from today on.
#pragma once

#include "core/dates.h"

namespace kelvar {

struct FirstPayment {
    Date date{no_date};
    bool starts_this_month = false;
};

// Today when the month is the present one, else today's day in that month, clamped to its last day.
FirstPayment first_payment(Date today, int month, int year);

// Value at the first payment (dollars; `rate` in percent, `fee` in dollars per year): untouched, but
// for rounding to cents, when payments start this month.
double value_at_first_payment(double present_value, double rate, double fee, Date today,
                              const FirstPayment& first);

}  // namespace kelvar
