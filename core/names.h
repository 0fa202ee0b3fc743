// Names of fields and months and the words of criteria, compared without regard to case. Only the
// letters A to Z have two cases here; unlike the C library's, this never depends on the locale.
#pragma once

#include <algorithm>
#include <string_view>

namespace kelvar {

constexpr char lower_case(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

constexpr bool is_letter(char character) {
    return lower_case(character) >= 'a' && lower_case(character) <= 'z';
}

constexpr bool same_name(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, lower_case, lower_case);
}

}  // namespace kelvar
