// Rules of the length screen: how long payments may run, single and joint life expectancy.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/module1.h"
#include "input/rules/refusal.h"

namespace kelvar {

// The participant's age when periodic payments start, for the chosen method.
std::int16_t payment_start_age(const Scenario& scenario);

// The age whose row the single life or minimum distribution table is looked up at.
std::int16_t single_life_age(const Scenario& scenario, Date today);

// The ages whose row the joint table is looked up at: the participant's birthday counts as reached in
// the month when payments start, the spouse's not.
struct JointAges {
    std::int16_t participant = 0;
    std::int16_t spouse = 0;
};
JointAges joint_life_ages(const Scenario& scenario);

// From this age on the minimum distribution table counts, below it the single life table.
inline constexpr int minimum_distribution_from = 70;

// Joint life is offered up to this age at the nearest birthday.
bool joint_life_available(Date birth, Date today);

struct SpouseCheck {
    std::optional<Date> birth_date;  // when the box holds an acceptable date
    std::int16_t age = 0;            // today, whole years
    std::string_view message;        // empty when joint life can be chosen with this spouse
};

// The spouse must be at least 35 and more than 10 whole years younger than the participant. A refusal
// with a birth date is one of the choice, without one it is one of the date.
SpouseCheck check_spouse(std::string_view mask_text, int participant_age, Date today);

struct LengthEntry {
    LengthOption option = no_length;
    bool joint = false;
    std::string number_text{};
    std::string amount_text{};
};

// Checks the chosen length and stores what it means: number of payments or fixed amount, look-up ages
// and life expectancy. A failed look-up for a life expectancy is reported here and not refused: the
// life expectancy and the number of payments then stay as they were.
Check chk_fld(Module1& module, const LengthEntry& entry);

}  // namespace kelvar
