// What the reference tables must hold so that no figure is computed from damaged ones.
#pragma once

#include "core/records.h"

namespace kelvar {

// Checks the tables as they were read on opening. There must be
// - in `rate` rows with `rateid` 1 to 4 in this order, that of the boxes on the screen, of which some
// may
//   be missing; rates that are numbers above -100 and below 100 (percent per year); marks that are
//   texts of 1 to 60 characters without control characters;
// - in `lifexp` and `joinlife` whole ages from 0 to 200, no age or pair of ages twice, and divisors
//   (years) that are numbers above 0 and below 200.
// A text is no number, whatever it says. An age without a row is no fault: a look-up that fails has its
// own message. Throws DatabaseError naming the table and its row, counted from 1.
void check_reference_data(Database& database);

}  // namespace kelvar
