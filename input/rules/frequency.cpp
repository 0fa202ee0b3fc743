#include "input/rules/frequency.h"

#include <array>

namespace kelvar {

std::int16_t frequency_of_box(int index) {
    constexpr std::array<std::int16_t, 4> frequencies{12, 4, 2, 1};
    return frequencies.at(static_cast<std::size_t>(index));
}

Check check_frequency(int payments_per_year, std::string_view first_box) {
    if (payments_per_year != 0) {
        return std::nullopt;
    }
    return Refusal{"Invalid periodic payments selection. Select frequency of period payments.",
                   first_box};
}

}  // namespace kelvar
