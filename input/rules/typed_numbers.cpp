#include "input/rules/typed_numbers.h"

#include <algorithm>
#include <variant>

#include "core/module1.h"
#include "core/numbers.h"

namespace kelvar {

namespace {

constexpr std::size_t longest_entry = 60;

}  // namespace

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

}  // namespace kelvar
