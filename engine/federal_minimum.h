// In which years the payments of a schedule lie below what federal law asks for. An indication: no
// payment is changed, and the plan's own age of 70½ is another matter.
#pragma once

#include <string>
#include <vector>

#include "core/records.h"
#include "engine/years.h"

namespace kelvar {

// Calendar year in which a participant reaches the age from which federal law asks for minimum
// distributions.
int federal_minimum_from(Date birth);

// Marks the years from that one on whose payments, with a lump sum paid in the same year, are less than
// the federal minimum: the balance after the last payment of the year before, in the first year the
// value at the first payment, divided by the divisor of the ages reached in that year, of the joint
// table where that was chosen. Years for which the tables have no divisor stay unmarked. `years` is of
// `projection`.
void mark_below_federal_minimum(std::vector<YearRow>& years, const Scenario& scenario,
                                const Projection& projection, Database& database);

// "* 2028 to 2035: less than the federal minimum of about $12,313 and more; the plan must then pay
// more." The amount is the least of these years. Empty where no year is marked.
std::string federal_minimum_text(const std::vector<YearRow>& years);

}  // namespace kelvar
