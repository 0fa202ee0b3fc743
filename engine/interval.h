// What happens to an account between a payment and the next one, and where years meet.
#pragma once

#include <optional>

#include "engine/accrual.h"
#include "engine/schedule.h"

namespace kelvar {

struct Interval {
    int days = 0;
    double growth = 0.0;  // dollars, rounded to cents; negative at a rate below 0
    double fee = 0.0;     // dollars, not rounded
    bool fee_charged = false;
};

// After the payment with this index; nothing after the last one, and nothing once the account is empty.
// `accrual` has the rate and the fee of the schedule.
std::optional<Interval> interval_after(const PaymentSchedule& schedule, std::size_t index,
                                       Accrual& accrual);

// True for the first payment of a calendar year after the first one, and for the last payment of a
// year.
bool begins_year(const PaymentSchedule& schedule, std::size_t index);
bool ends_year(const PaymentSchedule& schedule, std::size_t index);

}  // namespace kelvar
