// Numbers as they are typed into boxes. A text of more than 60 bytes, which no person types, is none.
#pragma once

#include <optional>
#include <string_view>

namespace kelvar {

// The number typed; nothing when the text is no number.
std::optional<double> read_entry(std::string_view text);
// The same with its sign taken off.
std::optional<double> read_unsigned(std::string_view text);
// The same for an amount in dollars; nothing also when it is too large to be kept to the cent.
std::optional<double> get_num(std::string_view text);

// True while more typing can make an amount of what stands in a box.
bool can_become_amount(std::string_view text);

}  // namespace kelvar
