// Whether joint life can be chosen at all, and with which spouse.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "core/dates.h"
#include "input/rules/refusal.h"

namespace kelvar {

// What is said where the spouse's date of birth is missing, or cannot be looked up.
inline constexpr std::string_view enter_spouse = "Please enter the birthdate of your spouse.";

// Joint life is offered up to age 90 at the nearest birthday.
Check check_joint_life(Date birth, Date today);

struct SpouseCheck {
    std::optional<Date> birth_date{};  // when the box holds an acceptable date
    std::int16_t age = 0;              // today, whole years
    Check wrong{};                     // nothing when joint life can be chosen with this spouse
};

// The spouse must be at least 35 and more than 10 whole years younger than the participant. A refusal
// with a birth date is one of the choice, without one it is one of the date.
SpouseCheck check_spouse(std::string_view mask_text, int participant_age, Date today);

}  // namespace kelvar
