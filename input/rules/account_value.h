// The value of the account, as it is typed.
#pragma once

#include <optional>
#include <string_view>

#include "input/rules/refusal.h"

namespace kelvar {

// While it is typed: refuses what can become no amount. The text differs by its missing full stop.
Check check_typing(std::string_view text);

// What was typed, in dollars: refuses what is no amount, and what is 0 when rounded to cents.
Check check_account_value(std::optional<double> value);

}  // namespace kelvar
