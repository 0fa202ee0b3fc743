// Says in words why a payment has its amount, and where the money of a projection came from and went.
// All figures are dollars; what the texts add up is right to the cent.
#pragma once

#include <string>
#include <string_view>

#include "engine/projection.h"

namespace kelvar {

// True when the payment has another amount, in whole cents, than the one before it.
bool amount_changes(const PaymentSchedule& schedule, std::size_t index);

// One payment: the division that gave its amount, or why it stays, then what makes the rest the
// balance before the next payment. "Payment 7, January, 2021: $258,300.14 divided by 343 payments (342
// to come and this one) = $753.06. The $257,547.08 left grows by $1,095.94 in 31 days, less $6.79 fee:
// $258,636.23." The growth counts what rounding leaves over.
std::string explanation(const Scenario& scenario, const Projection& projection, std::size_t index);

// The first half of it: "Payment 7, January, 2021: $258,300.14 divided by 343 payments (342 to come
// and this one) = $753.06."
std::string amount_explanation(const Scenario& scenario, const PaymentSchedule& schedule,
                               std::size_t index);

// The ledger as one sum, then how often no fee was charged, and what of it lies before the first
// payment. After a partial lump sum the years have a row for that.
std::string ledger_text(const Projection& projection);

// The last of it alone, beginning with `before`; empty where nothing lies before.
std::string before_payments_text(const Ledger& ledger, std::string_view before = "Before");

}  // namespace kelvar
