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

}  // namespace kelvar
