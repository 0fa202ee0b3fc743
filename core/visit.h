#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "core/dates.h"
#include "core/entries.h"

namespace kelvar {

// What is printed besides the summary.
struct PrintedParts {
    bool years = false;
    bool payments = true;
};

// What one screen hands to the next for a moment, and what lasts as long as a participant is on the
// screens.
struct Visit {
    Date projected_on{no_date};          // today of the result that is shown, for its comparison
    int compared_rate = -1;              // of selected_rates, to the comparison and back; -1 none
    std::optional<double> shown_rate{};  // of the result that was looked at last
    std::vector<Entries> choices{};      // results that were kept, in their order
    PrintedParts printed_parts{};
};

inline constexpr std::size_t most_choices = 6;

}  // namespace kelvar
