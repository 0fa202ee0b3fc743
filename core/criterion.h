// Search criteria for record sets: "age=70", "rateid = 3", "PartAge=70and BeneAge=65".
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelvar {

struct Condition {
    std::string field;  // as written; fields are compared without regard to case
    double value = 0.0;
};

// Conditions joined by "and", each a field name, "=" and a number. A number ends at its last digit,
// so no blank is needed before "and". Throws std::invalid_argument for anything else.
std::vector<Condition> parse_criterion(std::string_view text);

}  // namespace kelvar
