// The least amount certain: the minimum distribution of the year in which it is paid.
#pragma once

#include "core/records.h"
#include "core/scenario.h"
#include "input/rules/refusal.h"

namespace kelvar {

// From age 70½ on, an amount certain that is followed by payments in a later year only must not be
// below the present value by the divisor at the participant's age in the month of the first payment. A
// table without that age refuses nothing.
Check check_minimum_distribution(const Scenario& scenario, Database& database);

}  // namespace kelvar
