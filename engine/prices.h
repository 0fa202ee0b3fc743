// What dollars of another year buy in prices of today.
#pragma once

#include <string>

#include "engine/projection.h"

namespace kelvar {

inline constexpr int price_rates[] = {2, 3, 4};  // how much prices may rise, percent a year

// What buys after `years` years what `dollars` buy today, and what buys today what `dollars` buy then;
// compounded once a year, rounded to cents.
double dollars_needed(double dollars, int percent, int years);
double dollars_worth(double dollars, int percent, int years);

// Of the payments of the last full year, "At 3% a year, what $1.00 buys today takes $1.81 in 2046; the
// $3,925.45 a month of 2054 would buy what $1,715.72 buys today." Years count from the calendar year of
// the projection's today. The dollar is that of 20 years later, or of the payments when they come
// sooner. Empty for a lump sum that is all, without payments or a full year of them, and where that is
// this year.
std::string price_text(const Scenario& scenario, const Projection& projection, int percent);

}  // namespace kelvar
