// What the summary on paper says of a result beyond its figures: what it comes to in a few words, why,
// what was chosen and what else was possible, and what the words mean.
#pragma once

#include "core/records.h"
#include "engine/projection.h"
#include "output/report/report_values.h"

namespace kelvar {

// Adds figure, figure_period, figure_note, facts, why, chosen, until, another_rate, words and
// not_worked_out. The projection is complete; life, life_age, spouse_age and divisor are in `values`
// already.
void add_summary(ReportValues& values, const Scenario& scenario, const Projection& projection,
                 Database& database);

}  // namespace kelvar
