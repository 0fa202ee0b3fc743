// The participant's date of birth, and dates as they are typed.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "core/dates.h"
#include "input/rules/refusal.h"

namespace kelvar {

// What a box for a date holds while nothing is typed: MM/DD/YYYY, "_" in unfilled places.
inline constexpr std::string_view empty_mask = "__/__/____";

// The date in such a box; nothing unless it is a real date. A year of two digits is always in the
// 1900s.
std::optional<Date> read_masked_date(std::string_view mask_text);

struct BirthCheck {
    std::optional<Date> date{};  // what the box holds, if it is a date at all
    std::int16_t age = 0;        // today, whole years
    Check wrong{};               // nothing when the date of birth is accepted
};

// Accepts ages 16 to 100.
BirthCheck check_birth(std::string_view mask_text, Date today);

// Refuses a box in which nothing is typed.
Check check_birth_typed(std::string_view mask_text);

// False for `no_date`, and for any other date before 1900.
bool birth_date_known(Date birth);

}  // namespace kelvar
