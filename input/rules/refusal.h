// What a rule finds wrong. A rule never shows it and never asks; the screen does.
#pragma once

#include <optional>
#include <string_view>

namespace kelvar {

struct Refusal {
    enum class Means {
        refused,  // shown; the field is to be corrected
        limited,  // the same, because of a limit that input/rules/limits.h finds
        told,     // shown and passed over: what was asked for goes on
        asked     // a yes/no question: Yes leads back to the field, No insists on the entry
    };

    std::string_view text;   // message or question, as it is shown
    std::string_view field;  // name of the control to correct; empty when only told
    Means means = Means::refused;
};

// Nothing when the entry is accepted.
using Check = std::optional<Refusal>;

}  // namespace kelvar
