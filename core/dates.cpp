#include "core/dates.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <stdexcept>

#include "core/names.h"
#include "core/operating_system.h"

namespace kelvar {

namespace chr = std::chrono;

namespace {

constexpr std::array<std::string_view, 12> month_names{"January",   "February", "March",    "April",
                                                       "May",       "June",     "July",     "August",
                                                       "September", "October",  "November", "December"};

}  // namespace

Date system_date() {
    const std::tm local = local_time();
    return Date{chr::year{local.tm_year + 1900}, chr::month{static_cast<unsigned>(local.tm_mon + 1)},
                chr::day{static_cast<unsigned>(local.tm_mday)}};
}

int year_of(Date date) {
    return static_cast<int>(date.year());
}

int month_of(Date date) {
    return static_cast<int>(static_cast<unsigned>(date.month()));
}

int day_of(Date date) {
    return static_cast<int>(static_cast<unsigned>(date.day()));
}

std::optional<Date> real_date(int year, int month, int day) {
    if (year < 1 || year > 9999 || month < 1 || month > 12 || day < 1 || day > 31) {
        return std::nullopt;
    }
    const Date date{chr::year{year}, chr::month{static_cast<unsigned>(month)},
                    chr::day{static_cast<unsigned>(day)}};
    return date.ok() ? std::optional{date} : std::nullopt;
}

int days_between(Date from, Date to) {
    return static_cast<int>((chr::sys_days{to} - chr::sys_days{from}).count());
}

Date age_seventy_and_a_half(Date birth) {
    return add_months(add_years(birth, 70), 6);
}

std::string_view month_name(int month) {
    if (month < 1 || month > 12) {
        throw std::out_of_range(fmt::format("there is no month {}", month));
    }
    return month_names[static_cast<std::size_t>(month - 1)];
}

int month_number(std::string_view name) {
    const auto found = std::ranges::find_if(
        month_names, [&](std::string_view candidate) { return same_name(candidate, name); });
    return found == month_names.end() ? 0 : static_cast<int>(found - month_names.begin()) + 1;
}

std::string month_year_text(Date date) {
    return fmt::format("{}, {:04}", month_name(month_of(date)), year_of(date));
}

std::string date_text(Date date) {
    return fmt::format("{:02}/{:02}/{:04}", month_of(date), day_of(date), year_of(date));
}

}  // namespace kelvar
