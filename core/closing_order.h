// The order in which screens close. It is fixed, and the same whether or not they have been opened.
#pragma once

#include <cstdint>
#include <vector>

#include "core/screens.h"

namespace kelvar {

// Of Close: what belongs to the method, the other screens, and last the main window, which ends the
// program. `method` as in Scenario.
std::vector<ScreenId> order_to_the_end(std::int16_t method);

// Of a return to the menu, which starts afresh: all that holds entries or results, last the menu
// itself.
std::vector<ScreenId> order_to_the_menu();

}  // namespace kelvar
