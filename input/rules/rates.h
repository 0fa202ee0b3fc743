// The rates of return on offer and those ticked.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/records.h"
#include "input/rules/refusal.h"

namespace kelvar {

// Ticks of the five boxes: index 0 is "all", 1 to 4 are the rates with that identifier.
using RateTicks = std::array<bool, 5>;

// Their captions, such as "5%_____________Low Risk/Low Return Portfolio", under the same indices; empty
// for "all" and for a rate without a row.
using RateCaptions = std::array<std::string, 5>;
RateCaptions rate_captions(Recordset& rates);

// Refuses that none is ticked.
Check check_rates(const RateTicks& ticks);

// The ticked rates in percent per year, by ascending identifier. A rate without a row is left out.
std::vector<double> rate_list(Recordset& rates, const RateTicks& ticks);

}  // namespace kelvar
