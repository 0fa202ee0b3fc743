// A result in one sentence, as screens and reports show it.
#pragma once

#include <string>

#include "engine/projection.h"

namespace kelvar {

// What is paid, from when to when, up to which age, and how it changes: "Estimate at 5%: $734.30 a
// month from July, 2020, $753.06 from January, 2021, then a new amount each January; last payment July,
// 2049, age 99." From the age on at which the minimum distribution table counts, its years are named
// so. Empty unless the projection is complete.
std::string headline(const Scenario& scenario, const Projection& projection);

}  // namespace kelvar
