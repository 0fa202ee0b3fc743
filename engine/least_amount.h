// What payments of a fixed amount must come to, so that they end in time.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "engine/projection.h"

namespace kelvar {

// The least dollar amount of payments (whole cents) for which `project` is complete at this rate,
// whatever amount the scenario has: a cent less outlasts the life expectancy. Because a fee is charged
// only while the growth covers it, some cents below that an amount may end in time by chance. Nothing
// when none is complete, and for a scenario without dollar amounts, a frequency, a life expectancy or a
// first payment month that can still come.
std::optional<double> least_complete_amount(const Scenario& scenario, double rate, Date today);

// "To end in time it takes $1,773.48 a month at 5% and $2,420.23 at 8%.", at the lowest and the highest
// of the rates; without one at which no amount would do. Empty where there is none.
std::string least_amount_text(const Scenario& scenario, const std::vector<double>& rates, Date today);

// Why there are no payments to show at this rate, and where they would outlast life, what it takes.
// Empty where they are complete.
std::string no_result_text(const Scenario& scenario, Outcome outcome, double rate, Date today);

}  // namespace kelvar
