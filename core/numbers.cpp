#include "core/numbers.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace kelvar {

namespace {

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

bool is_blank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

struct ParsedNumber {
    double value = 0.0;
    std::size_t end = 0;  // first character behind the number
    bool found = false;
};

std::size_t skip_blanks(std::string_view text, std::size_t at) {
    while (at < text.size() && is_blank(text[at])) {
        ++at;
    }
    return at;
}

std::size_t count_digits(std::string_view text, std::size_t at) {
    std::size_t count = 0;
    while (at + count < text.size() && is_digit(text[at + count])) {
        ++count;
    }
    return count;
}

// A comma belongs to the number only before a full group of three digits, so that "1,5" is never
// taken for 15.
bool is_group_comma(std::string_view text, std::size_t at) {
    return at < text.size() && text[at] == ',' && count_digits(text, at + 1) == 3;
}

ParsedNumber parse_number(std::string_view text) {
    ParsedNumber parsed;
    std::string plain;
    std::size_t at = skip_blanks(text, 0);
    bool negative = false;
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) {
        negative = text[at] == '-';
        ++at;
    }
    if (at < text.size() && text[at] == '$') {
        ++at;
    }

    std::size_t digits = count_digits(text, at);
    plain.append(text, at, digits);
    at += digits;
    if (digits >= 1 && digits <= 3 && plain.front() != '0') {
        while (is_group_comma(text, at)) {
            plain.append(text, at + 1, 3);
            at += 4;
        }
    }
    if (at < text.size() && text[at] == '.') {
        const std::size_t decimals = count_digits(text, at + 1);
        if (digits + decimals > 0) {
            plain.append(digits == 0 ? "0." : ".").append(text, at + 1, decimals).append("0");
            at += 1 + decimals;
            digits += decimals;
        }
    }
    if (digits == 0) {
        return parsed;
    }
    if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
        const std::size_t sign =
            at + 1 < text.size() && (text[at + 1] == '+' || text[at + 1] == '-') ? 1 : 0;
        const std::size_t exponent = count_digits(text, at + 1 + sign);
        if (exponent > 0) {
            plain.append("e").append(sign == 1 && text[at + 1] == '-' ? "-" : "");
            plain.append(text, at + 1 + sign, exponent);
            at += 1 + sign + exponent;
        }
    }

    const auto [stop, error] = std::from_chars(plain.data(), plain.data() + plain.size(), parsed.value);
    parsed.end = at;
    const bool vanishing =
        error == std::errc::result_out_of_range && plain.find("e-") != std::string::npos;
    parsed.found = vanishing || (error == std::errc{} && std::isfinite(parsed.value));
    if (!parsed.found || vanishing) {
        parsed.value = 0.0;
    } else if (negative) {
        parsed.value = -parsed.value;
    }
    return parsed;
}

// A finite positive value as 15 significant decimal digits and the power of ten of the first one.
struct Decimal {
    std::string digits;
    int exponent = 0;
};

Decimal significant_digits(double positive) {
    const std::string text = fmt::format("{:.14e}", positive);
    Decimal decimal;
    decimal.digits = text.substr(0, 1) + text.substr(2, 14);
    const char* exponent = text.data() + text.find('e') + 1;
    std::from_chars(exponent + (*exponent == '+' ? 1 : 0), text.data() + text.size(), decimal.exponent);
    return decimal;
}

// Digits of |value| × 10^places as a whole number, rounded half up; without leading zeros, "0" for 0.
std::string rounded_digits(double value, int places) {
    const double positive = std::abs(value);
    if (positive == 0.0) {
        return "0";
    }
    const Decimal decimal = significant_digits(positive);
    const int kept = decimal.exponent + 1 + places;  // digits before the cut
    if (kept < 0) {
        return "0";
    }
    const auto count = static_cast<std::size_t>(kept);
    if (count >= decimal.digits.size()) {
        return decimal.digits + std::string(count - decimal.digits.size(), '0');
    }
    std::string whole = decimal.digits.substr(0, count);
    if (decimal.digits[count] >= '5') {
        auto digit = whole.rbegin();
        while (digit != whole.rend() && *digit == '9') {
            *digit++ = '0';
        }
        if (digit == whole.rend()) {
            whole.insert(whole.begin(), '1');
        } else {
            ++*digit;
        }
    }
    return whole.empty() ? "0" : whole;
}

}  // namespace

double round_to_cents_by_digits(double dollars) {
    if (!std::isfinite(dollars)) {
        return dollars;
    }
    std::string digits = rounded_digits(dollars, 2);
    if (digits.size() < 3) {
        digits.insert(0, 3 - digits.size(), '0');
    }
    digits.insert(digits.size() - 2, 1, '.');
    double rounded = 0.0;
    std::from_chars(digits.data(), digits.data() + digits.size(), rounded);
    return rounded == 0.0 ? 0.0 : std::copysign(rounded, dollars);
}

double read_number(std::string_view text) {
    return parse_number(text).value;
}

bool is_numeric(std::string_view text) {
    const ParsedNumber parsed = parse_number(text);
    return parsed.found && skip_blanks(text, parsed.end) == text.size();
}

bool can_be_in_number(char character) {
    return is_digit(character) || is_blank(character) ||
           std::string_view{"+-$,.eE"}.find(character) != std::string_view::npos;
}

std::string format_number(double value, std::string_view pattern) {
    if (!std::isfinite(value)) {
        return fmt::format("{}", value);
    }
    const bool dollar = pattern.starts_with('$');
    const std::size_t point = pattern.find('.');
    const std::string_view whole_pattern = pattern.substr(0, point);
    const std::size_t places = point == std::string_view::npos ? 0 : pattern.size() - point - 1;
    const auto least = static_cast<std::size_t>(std::ranges::count(whole_pattern, '0'));
    const bool grouped = whole_pattern.find(',') != std::string_view::npos;

    std::string digits = rounded_digits(value, static_cast<int>(places));
    const bool zero = digits.find_first_not_of('0') == std::string::npos;
    if (digits.size() < places + least) {
        digits.insert(0, places + least - digits.size(), '0');
    }
    std::string whole = digits.substr(0, digits.size() - places);
    if (grouped) {
        for (std::size_t at = whole.size(); at > 3;) {
            at -= 3;
            whole.insert(at, 1, ',');
        }
    }
    std::string text = std::signbit(value) && !zero ? "-" : "";
    text += dollar ? "$" : "";
    text += whole;
    if (places > 0) {
        text += '.' + digits.substr(digits.size() - places);
    }
    return text;
}

std::string number_text(double value) {
    return fmt::format("{:.15g}", value == 0.0 ? 0.0 : value);
}

}  // namespace kelvar
