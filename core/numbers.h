// Money and number text: the one place that rounds to cents, reads what somebody typed and writes
// numbers in the patterns of the screens and reports. Never depends on the system's locale.
#pragma once

#include <cmath>
#include <string>
#include <string_view>

namespace kelvar {

// The largest amount (dollars) whose cents are among the 15 significant digits that rounding looks at;
// what is above it, if only by half a cent, is refused on entry.
inline constexpr double largest_amount = 9'999'999'999'999.99;

// The patterns of the screens and reports.
namespace pattern {
inline constexpr const char* dollars = "$###,###,##0.00";
inline constexpr const char* payment = "$###,##0.00";
inline constexpr const char* whole_dollars = "$###,###,##0";
inline constexpr const char* fee = "$##0";
inline constexpr const char* amount = "###,###,##0.00";  // in a box
inline constexpr const char* plain_amount = "##0.00";    // in a box
inline constexpr const char* percentage = "00.00";       // in a box
inline constexpr const char* whole = "##0";
}  // namespace pattern

// Rounds dollars to cents, half away from zero. The value is first taken at 15 significant digits,
// what a person would read: 1.005 gives 1.01 although the double is a little below it.
inline double round_to_cents(double dollars);

// Number at the start of a text; 0 when there is none. Reads blanks, one sign, one optional "$",
// digits with commas between groups of three, a decimal point and an exponent, and stops before the
// first character that does not belong. Digits in groups do not begin with 0: "0,500" reads as 0. A
// number too large for a double reads as 0.
double read_number(std::string_view text);

// True when the whole text (blanks around it aside) is one such number. "nan", "inf" and hexadecimal
// are not.
bool is_numeric(std::string_view text);

// True when the character can stand somewhere in a number as read_number takes it.
bool can_be_in_number(char character);

// Writes a number in a pattern of '#', '0', ',' and '.', with an optional leading '$':
// "###,###,##0.00", "$##0", "00.00". Rounds half away from zero at 15 significant digits, shows all
// digits even where the pattern has fewer places, and puts a minus sign before the '$'.
std::string format_number(double value, std::string_view pattern);

// A number as a person would write it, at most 15 significant digits: 19.6 + 69 gives "88.6".
std::string number_text(double value);

// The same as round_to_cents, digit by digit.
double round_to_cents_by_digits(double dollars);

// Dollars, and how many cents they are; the count is no number where they carry fractions of a cent.
struct Cents {
    double dollars = 0.0;
    double count = 0.0;
};

inline Cents whole_cents(double dollars) {
    // A sum this large has no binary places left, so adding and subtracting it rounds to a whole
    // number.
    constexpr double no_fraction = 0x1.8p52;
    constexpr double largest = 0x1p50;
    const double cents = dollars * 100.0;
    const double nearest = (cents + no_fraction) - no_fraction;
    // Unless the value is close to the middle between two cents, the double and its 15 digits round
    // alike; 1e-14 of it covers both ways to be off. Also true for what is not finite.
    const double size = std::abs(cents);
    const bool clear = std::abs(std::abs(cents - nearest) - 0.5) > size * 1e-14 && size < largest;
    if (clear) {
        return {nearest / 100.0, nearest};
    }
    const double rounded = round_to_cents_by_digits(dollars);
    return {rounded, std::round(rounded * 100.0)};
}

double round_to_cents(double dollars) {
    return whole_cents(dollars).dollars;
}

// The difference in dollars, rounded to cents. Whole cents are subtracted as such, which is exact, and
// far quicker than to wait for their dollars.
inline Cents rounded_difference(const Cents& from, const Cents& amount) {
    constexpr double largest = 0x1p44;
    if (std::abs(from.count) < largest && std::abs(amount.count) < largest) {
        const double count = from.count - amount.count;
        return {count / 100.0, count};
    }
    return whole_cents(from.dollars - amount.dollars);
}

}  // namespace kelvar
