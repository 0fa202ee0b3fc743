// The look-up of the life expectancy for the four ways to say how long payments run.
#pragma once

#include "core/records.h"
#include "core/scenario.h"
#include "input/rules/refusal.h"

namespace kelvar {

// The options of chk_life are the length options 1 to 3, and 4 for joint life expectancy.
inline constexpr int by_joint_life_expectancy = 4;

// Looks the life expectancy of an option up and stores it with the ages it was looked up at. Options 1
// and 2 check the stored number or amount against it and refuse a look-up that fails; 3 and 4 store the
// number of payments that it gives, and a look-up that fails is only told: life expectancy and number
// of payments then stay as they were.
Check chk_life(int option, Scenario& scenario, Database& database, Date today);

}  // namespace kelvar
