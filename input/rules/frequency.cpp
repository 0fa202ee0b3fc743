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
    std::string_view period;
};

constexpr std::array<Frequency, 4> frequencies{{{12, "monthly", "a month"},
                                                {4, "quarterly", "a quarter"},
                                                {2, "semi-annual", "a half-year"},
                                                {1, "annual", "a year"}}};

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

std::string_view period_text(int payments_per_year) {
    return words_of(payments_per_year).period;
}

Check check_frequency(int payments_per_year, std::string_view first_box) {
    if (payments_per_year != 0) {
        return std::nullopt;
    }
    return Refusal{"Invalid periodic payments selection. Select frequency of period payments.",
                   first_box};
}

}  // namespace kelvar
