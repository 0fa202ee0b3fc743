// What a check of an input screen finds wrong.
#pragma once

#include <optional>
#include <string_view>

namespace kelvar {

struct Refusal {
    std::string_view text;   // message to show; empty when the user has already been told
    std::string_view field;  // name of the control to correct
};

// Nothing when the entry is accepted.
using Check = std::optional<Refusal>;

}  // namespace kelvar
