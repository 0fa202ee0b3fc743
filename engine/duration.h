// How long an account lasts under level yearly withdrawals.
#pragma once

#include <optional>

namespace kelvar {

// Whole years that year-end withdrawals of `withdrawal` percent of today's balance last at an annual
// return of `rate` percent; nothing when they never empty the account.
std::optional<int> years_payments_last(double withdrawal, double rate);

}  // namespace kelvar
