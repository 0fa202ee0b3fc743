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

Date day_of(const std::tm& local) {
    return Date{chr::year{local.tm_year + 1900}, chr::month{static_cast<unsigned>(local.tm_mon + 1)},
                chr::day{static_cast<unsigned>(local.tm_mday)}};
}

}  // namespace

Date system_date() {
    return day_of(local_time());
}

Date day_of_writing(const std::filesystem::path& file) {
    return day_of(time_of_writing(file));
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

std::optional<std::string> date_in_box(std::string_view text) {
    constexpr std::string_view digits = "0123456789";
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t begin = std::min(text.find_first_not_of(blanks), text.size());
    text = text.substr(begin, text.find_last_not_of(blanks) + 1 - begin);
    if (text.size() == 8 && text.find_first_not_of(digits) == text.npos) {
        return fmt::format("{}/{}/{}", text.substr(0, 2), text.substr(2, 2), text.substr(4));
    }
    const std::size_t first = text.find_first_not_of(digits);
    const std::size_t second = first < text.size() ? text.find_first_not_of(digits, first + 1) : first;
    constexpr std::string_view marks = "/.-";
    if (second >= text.size() || marks.find(text[first]) == marks.npos ||
        marks.find(text[second]) == marks.npos) {
        return std::nullopt;
    }
    const std::string_view month = text.substr(0, first);
    const std::string_view day = text.substr(first + 1, second - first - 1);
    const std::string_view year = text.substr(second + 1);
    if (month.empty() || month.size() > 2 || day.empty() || day.size() > 2 ||
        (year.size() != 2 && year.size() != 4) || year.find_first_not_of(digits) != year.npos) {
        return std::nullopt;
    }
    return fmt::format("{:0>2}/{:0>2}/{:_<4}", month, day, year);
}

std::string month_year_text(Date date) {
    return fmt::format("{}, {:04}", month_name(month_of(date)), year_of(date));
}

std::string date_text(Date date) {
    return fmt::format("{:02}/{:02}/{:04}", month_of(date), day_of(date), year_of(date));
}

}  // namespace kelvar
