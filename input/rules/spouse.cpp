#include "input/rules/spouse.h"

#include "core/ages.h"
#include "core/plan.h"
#include "input/rules/birth_date.h"

namespace kelvar {

namespace {

Check check_ages(int age, int participant_age) {
    if (age < plan::youngest_spouse) {
        return Refusal{
            "You can select Joint Life Expectancy only if your spouse is at least 35 years old, and is "
            "at least 10 years younger than you!",
            "oplifeexp_0"};
    }
    if (age >= participant_age - plan::least_spouse_difference) {
        return Refusal{
            "You cannot select Joint Life Expectancy. It is an option only when your spouse is more "
            "than 10 years younger than you.",
            "oplifeexp_0"};
    }
    return std::nullopt;
}

}  // namespace

Check check_joint_life(Date birth, Date today) {
    if (currentage(birth, today) <= plan::oldest_for_joint_life) {
        return std::nullopt;
    }
    return Refusal{
        "Join Life Expectancy is not available when either you or your spouse is older than 90 years!",
        "oplifeexp_0"};
}

SpouseCheck check_spouse(std::string_view mask_text, int participant_age, Date today) {
    const auto birth = read_masked_date(mask_text);
    const int years = birth ? year_of(today) - year_of(*birth) : 0;
    if (years < 1 || years > plan::most_years_since_spouse_birth) {
        return {.wrong = Refusal{enter_spouse, "mskbenebirth"}};
    }
    const std::int16_t age = age_on_day(*birth, today);
    return {.birth_date = birth, .age = age, .wrong = check_ages(age, participant_age)};
}

}  // namespace kelvar
