// From what was entered to a scenario, by the rules and in the order of the steps.
#pragma once

#include "core/entries.h"
#include "core/records.h"
#include "core/scenario.h"
#include "input/rules/refusal.h"

namespace kelvar {

struct Entered {
    Scenario scenario;  // what was chosen, the rest as far as it was accepted
    Check refused{};    // the first entry that is missing or refused today, as its screen says it
};

// What typing the entries today and pressing Next on each step comes to. `insists` after a No to the
// question whether payments are to begin beyond the life expectancy.
Entered enter(const Entries& entries, Database& database, Date today, bool insists = false);

}  // namespace kelvar
