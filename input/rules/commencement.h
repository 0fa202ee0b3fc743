// The commencement of the payments that follow an amount certain: the second date of a partial lump
// sum.
#pragma once

#include <vector>

#include "core/scenario.h"
#include "input/rules/refusal.h"

namespace kelvar {

// Years and months in which the payments after the amount certain may begin: after the first payment
// and not after the deadline, March of the last year. The list can be empty.
std::vector<int> scenario_years(const Scenario& scenario, Date today);
std::vector<int> scenario_months(const Scenario& scenario, int chosen_year, Date today);

// The participant's age at the commencement. Only the year is that of the commencement: the month is
// the present one.
int commencement_age(const Scenario& scenario, Date today);

// Payments that begin at an age at or after the end of the life expectancy are refused from age 70 on
// and a question before. Whoever insists on them must not be older than 100.
Check check_beyond_life(int commencement_age, bool insists);

// The payments must begin in a later month than the first payment.
Check check_later_than_first_payment(const Scenario& scenario);

}  // namespace kelvar
