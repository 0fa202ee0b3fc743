// What the report templates are told of a result besides the work tables: the very figures that its
// screen shows.
#pragma once

#include "core/records.h"
#include "engine/choices.h"
#include "engine/comparison.h"
#include "engine/projection.h"
#include "output/report/report_values.h"

namespace kelvar {

// Of a complete projection of the scenario. The chart shows what is paid in each year; there is none
// for a single year, or for a lump sum.
ReportValues printed_values(const Scenario& scenario, const Projection& projection, Database& database);

// Without a chart.
ReportValues printed_comparison(const Scenario& scenario, const Comparison& comparison);
// The same of rows of choices and what is said of them; `scenario` says whose they are.
ReportValues printed_choices(const Scenario& scenario, Date today,
                             const std::vector<ChosenResult>& rows,
                             const std::vector<std::string>& sentences);

}  // namespace kelvar
