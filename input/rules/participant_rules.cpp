#include "input/rules/participant_rules.h"

#include <algorithm>
#include <numeric>

#include "core/module1.h"
#include "core/numbers.h"
#include "input/rules/ages.h"

namespace kelvar {

namespace {

constexpr std::string_view invalid_birth = "Invalid birth date.";
constexpr std::string_view empty_mask = "__/__/____";
constexpr int youngest = 16;
constexpr int oldest = 100;
constexpr int months_in_latest_year = 3;  // the law's deadline is March 31st
constexpr std::size_t longest_entry = 60;

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

// Without a year the month counts as one of the present year.
bool has_passed(int month, int year, Date today) {
    const bool past_year = year != 0 && year < year_of(today);
    const bool past_month = year <= year_of(today) && month < month_of(today);
    return past_year || past_month;
}

bool contains(const std::vector<int>& numbers, int number) {
    return std::ranges::find(numbers, number) != numbers.end();
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
    return real_date(two_digit_year ? 1900 + *year : *year, *month, *day);
}

BirthCheck check_birth(std::string_view mask_text, Date today) {
    BirthCheck check;
    check.date = read_masked_date(mask_text);
    if (!check.date || year_of(today) <= year_of(*check.date)) {
        check.message = invalid_birth;
        return check;
    }
    check.age = age_on_day(*check.date, today);
    if (check.age < youngest) {
        check.message = "The current age should be at least 16 years!";
    } else if (check.age == oldest + 1) {
        check.message = "The current age should not axceed 100 years old.";
    } else if (check.age > oldest) {
        check.message = invalid_birth;
    }
    return check;
}

std::optional<double> read_entry(std::string_view text) {
    const bool valid = text.size() <= longest_entry && is_numeric(text);
    return valid ? std::optional{read_number(text)} : std::nullopt;
}

std::optional<double> read_unsigned(std::string_view text) {
    const auto number = read_entry(text);
    if (!number) {
        return std::nullopt;
    }
    const auto cleaned = abs_text(text);
    const double* negated = std::get_if<double>(&cleaned);
    return negated != nullptr ? *negated : *number;
}

std::optional<double> get_num(std::string_view text) {
    const auto amount = read_unsigned(text);
    return amount && *amount <= largest_amount ? amount : std::nullopt;
}

bool can_become_amount(std::string_view text) {
    return text.size() <= longest_entry && std::ranges::all_of(text, can_be_in_number);
}

std::vector<int> first_payment_years(Date birth, Date today) {
    if (year_of(birth) < 1900) {
        return {};
    }
    const int last =
        (cmp_birth(birth, today) ? year_of(today) : year_of(age_seventy_and_a_half(birth))) + 1;
    std::vector<int> years(static_cast<std::size_t>(last - year_of(today) + 1));
    std::iota(years.begin(), years.end(), year_of(today));
    return years;
}

std::vector<int> first_payment_months(bool latest_year) {
    std::vector<int> months(latest_year ? months_in_latest_year : 12);
    std::iota(months.begin(), months.end(), 1);
    return months;
}

Check chk_fields(const ParticipantEntry& entry, Date today) {
    if (has_passed(entry.month, entry.year, today)) {
        return Refusal{invalid_month, "Cmbfrstmonth"};
    }
    const auto value = get_num(entry.value_text);
    if (!value || round_to_cents(*value) == 0.0) {
        return Refusal{"Invalid present value of the account.", "txtcurvalue"};
    }
    if (entry.birth_text.empty() || entry.birth_text == empty_mask) {
        return Refusal{invalid_birth, "mskbirth"};
    }
    return std::nullopt;
}

Check check_first_payment(const Scenario& scenario, Date today) {
    const int month = scenario.first_pay_month;
    const int year = scenario.first_pay_year;
    const std::vector<int> years = first_payment_years(scenario.birth_date, today);
    const bool offered = contains(years, year) &&
                         contains(first_payment_months(year == years.back()), month) &&
                         !has_passed(month, year, today);
    return offered ? std::nullopt : Check{Refusal{invalid_month, "Cmbfrstmonth"}};
}

std::int16_t shown_age(Date birth, std::int16_t current_age, int month, int year, Date today) {
    const bool present_month = month == month_of(today) && year == year_of(today);
    return present_month ? current_age : age_in_month(birth, month, year);
}

std::int16_t participant_lookup_age(const Scenario& scenario, Date today) {
    return shown_age(scenario.birth_date, age_on_day(scenario.birth_date, today),
                     scenario.first_pay_month, scenario.first_pay_year, today);
}

}  // namespace kelvar
