#include "input/rules/frequency.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <stdexcept>

namespace kelvar {

namespace {

struct Frequency {
    std::int16_t payments_per_year;
    std::string_view adjective;
};

constexpr std::array<Frequency, 4> frequencies{
    {{12, "monthly"}, {4, "quarterly"}, {2, "semi-annual"}, {1, "annual"}}};

const Frequency& words_of(int payments_per_year) {
    const auto* const found =
        std::ranges::find(frequencies, payments_per_year, &Frequency::payments_per_year);
    if (found == frequencies.end()) {
        throw std::out_of_range("payments are made 1, 2, 4 or 12 times a year");
    }
    return *found;
}

}  // namespace

std::int16_t frequency_of_box(int index) {
    return frequencies.at(static_cast<std::size_t>(index)).payments_per_year;
}

std::string payments_text(int number, int payments_per_year) {
    return fmt::format("{} {} payment{}", number, words_of(payments_per_year).adjective,
                       number == 1 ? "" : "s");
}

Check check_frequency(int payments_per_year, std::string_view first_box) {
    if (payments_per_year != 0) {
        return std::nullopt;
    }
    return Refusal{"Invalid periodic payments selection. Select frequency of period payments.",
                   first_box};
}

}  // namespace kelvar
