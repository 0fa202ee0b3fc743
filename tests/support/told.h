// What a rule finds wrong, in one line for test tables.
#pragma once

#include <string>

#include "input/rules/refusal.h"

namespace kelvar::test {

// "text [field]"; "asked: " before a question, "told: " before what is passed over; "" when accepted.
inline std::string told(const Check& check) {
    if (!check) {
        return {};
    }
    std::string line = check->means == Refusal::Means::asked  ? "asked: "
                       : check->means == Refusal::Means::told ? "told: "
                                                              : "";
    line += check->text;
    return check->field.empty() ? line : line.append(" [").append(check->field).append("]");
}

const std::string accepted;

}  // namespace kelvar::test
