// The number and the dollar amount of payments as they are typed, and how long they may last.
#pragma once

#include <optional>
#include <string_view>

#include "core/scenario.h"
#include "input/rules/refusal.h"

namespace kelvar {

inline constexpr std::string_view invalid_number = "Invalid mumber of payments.";

// Each stores what is typed, unless it is refused: a whole number of payments from 1 on, kept up to
// 32767; an amount of at least a cent, cut to the present value. Nothing is no number.
Check take_number(Scenario& scenario, std::optional<double> typed);
Check take_amount(Scenario& scenario, std::optional<double> typed);

// An amount at least as high as the amount certain before it may last as long as it will.
bool amount_may_outlast_life(const Scenario& scenario);

// Payments of the stored number or amount must end with the life expectancy that was looked up.
Check check_number_within_life(const Scenario& scenario);
Check check_amount_within_life(const Scenario& scenario);

}  // namespace kelvar
