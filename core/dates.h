// Calendar dates, months and the plan's age milestones. Dates carry no time of day.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace kelvar {

using Date = std::chrono::year_month_day;

// Stands for "no date entered". Rules that build a list of years recognise it by a year before 1900.
inline constexpr Date no_date{std::chrono::year{1899}, std::chrono::month{12}, std::chrono::day{30}};

// Today's date; the program has it from nowhere else. Tests pass a fixed one.
using Clock = std::function<Date()>;
Date system_date();
// On which a file was last written.
Date day_of_writing(const std::filesystem::path& file);

int year_of(Date date);
int month_of(Date date);  // 1..12
int day_of(Date date);    // 1..31

// The calendar date with these parts, or nothing when there is no such day (30 February, month 13).
// Years 1 to 9999.
std::optional<Date> real_date(int year, int month, int day);

// Moves a date by months or years (negative: back). The day is kept and clamped to the last day of a
// shorter month: 31 January plus one month is 28 or 29 February.
inline Date add_months(Date date, int months) {
    const Date moved = date + std::chrono::months{months};
    return moved.ok() ? moved : Date{moved.year() / moved.month() / std::chrono::last};
}

inline Date add_years(Date date, int years) {
    return add_months(date, 12 * years);
}

int days_between(Date from, Date to);  // negative when `to` is earlier

// The day on which someone born on `birth` is 70½: 70 years, then 6 months later.
Date age_seventy_and_a_half(Date birth);

// Full English name of a month 1..12; throws std::out_of_range for another number.
std::string_view month_name(int month);
// Number 1..12 of a full month name, 0 when the text is none. Upper and lower case count as equal.
int month_number(std::string_view name);

// A date that somebody wrote, as "6/15/1950", "06-15-50" or "06151950", blanks around it aside, the way
// a box for a date holds it: MM/DD/YYYY, a year of two digits as "50__". Nothing for another text.
std::optional<std::string> date_in_box(std::string_view text);

std::string month_year_text(Date date);  // "July, 2020"
std::string date_text(Date date);        // "07/01/2020"

}  // namespace kelvar
