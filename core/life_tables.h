// Look-ups in the life expectancy tables.
#pragma once

#include <optional>

#include "core/records.h"

namespace kelvar {

// Divisor (years) of the single life or minimum distribution table at an age; nothing when the table
// has no such age.
std::optional<double> single_life_divisor(Database& database, int age);

// Likewise of the joint table.
std::optional<double> joint_life_divisor(Database& database, int participant_age, int spouse_age);

// Age at which the years of that divisor end: age plus divisor.
std::optional<double> single_life_expectancy(Database& database, int age);
std::optional<double> joint_life_expectancy(Database& database, int participant_age, int spouse_age);

// Age at the first payment (whole years) and the age, that plus the divisor of the table, at which
// the life expectancy or the minimum distribution years end.
struct LifeLimit {
    int lookup_age = 0;
    double life_expectancy_age = 0.0;
};

// True when `number_of_payments` payments, `frequency` a year, last beyond the limit. Ending exactly
// there is accepted. The years are compared as they are, without rounding.
inline bool payments_exceed_life(int number_of_payments, int frequency, const LifeLimit& limit) {
    const double years = static_cast<double>(number_of_payments) / frequency + limit.lookup_age;
    return years > limit.life_expectancy_age;
}

}  // namespace kelvar
