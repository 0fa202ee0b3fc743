#include "core/ages.h"

#include <cmath>

namespace kelvar {

namespace {

std::int16_t whole_years(int years) {
    return static_cast<std::int16_t>(years);
}

}  // namespace

std::int16_t age_on_day(Date birth, Date day) {
    const int months = month_of(day) - month_of(birth);
    const bool not_reached = months < 0 || (months == 0 && day_of(day) <= day_of(birth));
    return whole_years(year_of(day) - year_of(birth) - (not_reached ? 1 : 0));
}

Date last_birth_at_age(int age, Date day) {
    const Date birthday = add_years(day, -age);
    const int before = age_on_day(birthday, day) < age ? 1 : 0;
    return std::chrono::sys_days{birthday} - std::chrono::days{before};
}

std::int16_t age_in_month(Date birth, int month, int year) {
    return whole_years(year - year_of(birth) - (month < month_of(birth) ? 1 : 0));
}

std::int16_t age_in_month(Date birth, Date date) {
    return age_in_month(birth, month_of(date), year_of(date));
}

std::int16_t age_at_payment(Date birth, int month, int year) {
    return whole_years(year - year_of(birth) - (month <= month_of(birth) ? 1 : 0));
}

std::int16_t currentage(Date birth, Date today) {
    const int months = 12 * (year_of(today) - year_of(birth)) + month_of(today) - month_of(birth);
    return whole_years(static_cast<int>(std::nearbyint(months / 12.0)));  // half to even
}

bool cmp_birth(Date birth, Date today) {
    return today > age_seventy_and_a_half(birth);
}

}  // namespace kelvar
