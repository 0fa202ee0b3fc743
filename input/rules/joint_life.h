// Whether joint life can be chosen at all; with whom, see input/rules/spouse.h.
#pragma once

#include "core/dates.h"
#include "input/rules/refusal.h"

namespace kelvar {

// Joint life is offered up to age 90 at the nearest birthday.
Check check_joint_life(Date birth, Date today);

}  // namespace kelvar
