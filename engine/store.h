// What a result leaves in the work tables: its schedule and its heading row.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "core/records.h"
#include "engine/projection.h"

namespace kelvar {

// Fields of the heading row with their values, in the order written. Fields not named keep what the
// last writer left in them.
using Heading = std::vector<std::pair<std::string, FieldValue>>;

// What is written to the heading row: the fields of the scenario's method in their order. Empty unless
// the projection is complete, so that the row keeps the last result.
Heading heading_of(const Scenario& scenario, const Projection& projection);

// Replaces all rows of `schedule`, whoever wrote them, and, unless the heading is empty, rewrites the
// row of `distrib`, in one transaction: after a failure, or when the program is killed, the old rows
// and heading are all still there. Throws DatabaseError.
void store(Database& database, const PaymentSchedule& schedule, const Heading& heading);

// Rewrites the row of `distrib` alone, for a result without a schedule. Throws DatabaseError.
void add_table(Database& database, const Heading& heading);

}  // namespace kelvar
