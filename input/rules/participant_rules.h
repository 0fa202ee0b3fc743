// Rules of the participant data screen: date of birth, account value, first payment month.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/dates.h"
#include "core/scenario.h"
#include "input/rules/refusal.h"

namespace kelvar {

// The date in a box with the mask MM/DD/YYYY, "_" in unfilled places; nothing unless it is a real
// date. A year of two digits is always in the 1900s.
std::optional<Date> read_masked_date(std::string_view mask_text);

struct BirthCheck {
    std::optional<Date> date;  // what the box holds, if it is a date at all
    std::int16_t age = 0;      // today, whole years
    std::string_view message;  // empty when the date of birth is accepted
};

// Accepts ages 16 to 100.
BirthCheck check_birth(std::string_view mask_text, Date today);

// The number typed into a box; nothing when the text is no number, or longer than any number that a
// person would type.
std::optional<double> read_entry(std::string_view text);
// The same with its sign taken off.
std::optional<double> read_unsigned(std::string_view text);
// The same for an amount in dollars; nothing also when it is too large to be kept to the cent.
std::optional<double> get_num(std::string_view text);

// True while more typing can make an amount of what stands in a box.
bool can_become_amount(std::string_view text);

// Years in which payments may begin: the present one to the one after age 70½ is reached, or the next
// one where that has passed. None without a date of birth.
std::vector<int> first_payment_years(Date birth, Date today);

// Months that may be chosen when the latest of the offered years is, or is not, chosen.
std::vector<int> first_payment_months(bool latest_year);

// What is said of a month that cannot be chosen, or no longer.
inline constexpr std::string_view invalid_month = "Invalid month that you wish to begin payments.";

struct ParticipantEntry {
    int month = 0;  // chosen first payment month, 1..12
    int year = 0;   // chosen first payment year, 0 while none is offered
    std::string value_text;
    std::string birth_text;
};

// The checks of Next, up to the question whether a date of birth was entered at all.
Check chk_fields(const ParticipantEntry& entry, Date today);

// The check of the month once more before a result is computed: the day can have changed since. Refused
// is a first payment month that has passed, and one that today is not offered at all, as after a clock
// was set back.
Check check_first_payment(const Scenario& scenario, Date today);

// Age to be shown for a first payment month: today's age in the present month, else the age in that
// month.
std::int16_t shown_age(Date birth, std::int16_t current_age, int month, int year, Date today);

// The participant's key into the life expectancy tables: the age that the participant data screen
// shows, worked out anew, because joint life and the partial method have their own.
std::int16_t participant_lookup_age(const Scenario& scenario, Date today);

}  // namespace kelvar
