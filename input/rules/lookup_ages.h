// The ages at which the life expectancy tables are looked up.
#pragma once

#include "core/scenario.h"

namespace kelvar {

// Age to be shown for a first payment month: the age on the day in the present month, else the age in
// that month.
std::int16_t shown_age(Date birth, int month, int year, Date today);

// The participant's key into the life expectancy tables: the age that the participant data screen
// shows, worked out anew, because joint life and the partial method have their own.
std::int16_t participant_lookup_age(const Scenario& scenario, Date today);

// The participant's age when periodic payments start, for the chosen method.
std::int16_t payment_start_age(const Scenario& scenario);

// True when payments start late enough for the minimum distribution table; the single life table counts
// before.
bool minimum_distribution_counts(const Scenario& scenario);

// The age whose row the single life or minimum distribution table is looked up at.
std::int16_t single_life_age(const Scenario& scenario, Date today);

// The ages whose row the joint table is looked up at: the participant's birthday counts as reached in
// the month when payments start, the spouse's not.
struct JointAges {
    std::int16_t participant = 0;
    std::int16_t spouse = 0;
};
JointAges joint_life_ages(const Scenario& scenario);

}  // namespace kelvar
