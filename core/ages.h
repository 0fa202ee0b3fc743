// The ways in which the plan counts a person's age, in whole years. They differ on purpose in what
// happens around the birthday; each name says it.
#pragma once

#include <cstdint>

#include "core/dates.h"

namespace kelvar {

// Age on a day. The birthday itself still counts as the younger age.
std::int16_t age_on_day(Date birth, Date day);

// The last day of birth with which someone is at least this old on a day.
Date last_birth_at_age(int age, Date day);

// Age in a month: the birth month counts as reached from its first day.
std::int16_t age_in_month(Date birth, int month, int year);
std::int16_t age_in_month(Date birth, Date date);  // in the month of a date

// Age at a payment on the first of a month: in the birth month the birthday is not yet reached.
std::int16_t age_at_payment(Date birth, int month, int year);

// Age at the nearest birthday, by months; exactly half a year rounds to the even age.
std::int16_t currentage(Date birth, Date today);

// True when today is later than the day of age 70½.
bool cmp_birth(Date birth, Date today);

}  // namespace kelvar
