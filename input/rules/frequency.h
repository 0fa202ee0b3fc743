// How often payments are made.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "input/rules/refusal.h"

namespace kelvar {

// Payments per year of the boxes Monthly, Quarterly, Semi-Annually, Annually, index 0 to 3.
std::int16_t frequency_of_box(int index);

// "349 monthly payments", "1 annual payment".
std::string payments_text(int number, int payments_per_year);

// Refuses 0 payments a year, with the first of the boxes as the field to correct.
Check check_frequency(int payments_per_year, std::string_view first_box);

}  // namespace kelvar
