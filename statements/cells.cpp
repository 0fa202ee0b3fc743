#include "statements/cells.h"

#include <algorithm>
#include <charconv>
#include <iterator>

#include "core/dates.h"
#include "core/entries.h"
#include "core/names.h"
#include "input/rules/typed_numbers.h"

namespace kelvar {

namespace {

bool is_digit(char character) {
    return character >= '0' && character <= '9';
}

// Words and numbers between blanks, commas, slashes, points and hyphens; none when there is anything
// else.
std::vector<std::string_view> parts_of(std::string_view text) {
    std::vector<std::string_view> parts;
    for (std::size_t at = 0; at < text.size();) {
        const bool number = is_digit(text[at]);
        if (!number && !is_letter(text[at])) {
            if (std::string_view(" ,/.-").find(text[at++]) == std::string_view::npos) {
                return {};
            }
            continue;
        }
        std::size_t end = at;
        while (end < text.size() && (number ? is_digit(text[end]) : is_letter(text[end]))) {
            ++end;
        }
        parts.push_back(text.substr(at, end - at));
        at = end;
    }
    return parts;
}

// Of `most` digits at most; 0 for anything else.
int number_of(std::string_view part, std::size_t most) {
    int number = 0;
    if (!part.empty() && is_digit(part.front()) && part.size() <= most) {
        std::from_chars(part.data(), part.data() + part.size(), number);
    }
    return number;
}

// By a number or a name, of which three letters are enough; 0 for anything else.
int month_of_part(std::string_view part) {
    constexpr std::size_t shortest = 3;
    for (int month = 1; month <= 12 && part.size() >= shortest; ++month) {
        if (same_name(month_name(month).substr(0, part.size()), part)) {
            return month;
        }
    }
    const int number = number_of(part, 2);
    return number <= 12 ? number : 0;
}

int year_of_part(std::string_view part, bool may_be_short) {
    constexpr int century = 2000;
    if (part.size() == 2 && may_be_short) {
        return is_digit(part.front()) ? century + number_of(part, 2) : 0;
    }
    return part.size() == 4 ? number_of(part, 4) : 0;
}

// The length of the character at the start, 0 when it is none.
std::size_t character_at(std::string_view text) {
    const auto byte = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
    const unsigned first = byte(0);
    const std::size_t length = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    if ((first >= 0x80 && first < 0xC2) || first > 0xF4 || length > text.size()) {
        return 0;
    }
    unsigned code = length == 1 ? first : first & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0U) != 0x80U) {
            return 0;
        }
        code = code << 6U | (byte(i) & 0x3FU);
    }
    const bool too_long = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
    const bool half = code >= 0xD800 && code < 0xE000;
    return too_long || half || code > 0x10FFFF ? 0 : length;
}

}  // namespace

std::string_view without_blanks(std::string_view cell) {
    constexpr std::string_view blanks = " \t\r\n";
    cell.remove_prefix(std::min(cell.find_first_not_of(blanks), cell.size()));
    return cell.substr(0, cell.find_last_not_of(blanks) + 1);
}

std::string plain_words(std::string_view text) {
    std::string plain;
    for (const char character : text) {
        if (is_letter(character) || is_digit(character)) {
            plain += lower_case(character);
        }
    }
    return plain;
}

std::optional<int> read_word(std::string_view cell, std::span<const Word> words) {
    const std::string plain = plain_words(cell);
    const auto word = std::ranges::find_if(
        words, [&](const Word& known) { return plain_words(known.text) == plain; });
    return word != words.end() ? std::optional{word->value} : std::nullopt;
}

std::optional<MonthAndYear> read_month(std::string_view cell) {
    const std::vector<std::string_view> parts = parts_of(cell);
    if (parts.size() != 2 && parts.size() != 3) {
        return std::nullopt;
    }
    const bool year_first = parts.front().size() == 4 && is_digit(parts.front().front());
    const std::string_view month = parts[year_first ? 1 : 0];
    const bool named = is_letter(month.front());
    const bool day_too = parts.size() == 3;
    const MonthAndYear read{month_of_part(month),
                            year_of_part(year_first ? parts.front() : parts.back(), named || day_too)};
    const int day = day_too ? number_of(parts[year_first ? 2 : 1], 2) : 1;
    return real_date(read.year, read.month, day) ? std::optional{read} : std::nullopt;
}

std::vector<double> read_rates(std::string_view cell, const std::vector<double>& offered) {
    if (cell.empty() || same_name(cell, "all")) {
        return offered;
    }
    constexpr std::string_view between = " \t\r\n;,%";
    std::vector<double> wanted;
    for (std::size_t at = cell.find_first_not_of(between); at < cell.size();) {
        const std::size_t end = std::min(cell.find_first_of(between, at), cell.size());
        const auto rate = read_entry(cell.substr(at, end - at));
        if (!rate || std::ranges::find(offered, *rate) == offered.end()) {
            return {};
        }
        if (std::ranges::find(wanted, *rate) != wanted.end()) {
            return {};  // "5,5%" is no list
        }
        wanted.push_back(*rate);
        at = cell.find_first_not_of(between, end);
    }
    std::vector<double> chosen;
    std::ranges::copy_if(offered, std::back_inserter(chosen),
                         [&](double rate) { return std::ranges::find(wanted, rate) != wanted.end(); });
    return chosen;
}

std::string one_line(std::string_view cell) {
    std::string line;
    int characters = 0;
    while (!cell.empty() && characters < longest_name) {
        const std::size_t length = std::max<std::size_t>(character_at(cell), 1);
        const std::string_view character = cell.substr(0, length);
        cell.remove_prefix(length);
        const bool control = (length == 1 && static_cast<unsigned char>(character[0]) < ' ') ||
                             character == "\x7F" || (character >= "\xC2\x80" && character < "\xC2\xA0");
        const bool blank = control || character == " ";
        if (!blank || (!line.empty() && line.back() != ' ')) {
            line += blank ? " " : character;
            ++characters;
        }
    }
    while (line.ends_with(' ')) {
        line.pop_back();
    }
    return line;
}

bool is_utf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = character_at(text);
        if (length == 0) {
            return false;
        }
        text.remove_prefix(length);
    }
    return true;
}

}  // namespace kelvar
