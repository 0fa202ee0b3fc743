#include "input/rules/birth_date.h"

#include "core/ages.h"
#include "core/plan.h"

namespace kelvar {

namespace {

constexpr int first_year = 1900;
constexpr const char* field = "mskbirth";
constexpr Refusal invalid_birth{"Invalid birth date.", field};

// A whole number made of digits only; nothing for "_5", "5_" or "__".
std::optional<int> digits(std::string_view text) {
    int value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') {
            return std::nullopt;
        }
        value = 10 * value + (c - '0');
    }
    return value;
}

Check check_age(int age) {
    if (age < plan::youngest_participant) {
        return Refusal{"The current age should be at least 16 years!", field};
    }
    if (age == plan::oldest_participant + 1) {
        return Refusal{"The current age should not axceed 100 years old.", field};
    }
    return age > plan::oldest_participant ? Check{invalid_birth} : std::nullopt;
}

}  // namespace

std::optional<Date> read_masked_date(std::string_view mask_text) {
    if (mask_text.size() != empty_mask.size()) {
        return std::nullopt;
    }
    const bool two_digit_year = mask_text.substr(8, 2) == "__";
    const auto month = digits(mask_text.substr(0, 2));
    const auto day = digits(mask_text.substr(3, 2));
    const auto year = digits(mask_text.substr(6, two_digit_year ? 2 : 4));
    if (!month || !day || !year) {
        return std::nullopt;
    }
    return real_date(two_digit_year ? first_year + *year : *year, *month, *day);
}

BirthCheck check_birth(std::string_view mask_text, Date today) {
    BirthCheck check{.date = read_masked_date(mask_text)};
    if (!check.date || year_of(today) <= year_of(*check.date)) {
        check.wrong = invalid_birth;
        return check;
    }
    check.age = age_on_day(*check.date, today);
    check.wrong = check_age(check.age);
    return check;
}

Check check_birth_typed(std::string_view mask_text) {
    const bool typed = !mask_text.empty() && mask_text != empty_mask;
    return typed ? std::nullopt : Check{invalid_birth};
}

bool birth_date_known(Date birth) {
    return year_of(birth) >= first_year;
}

}  // namespace kelvar
