// What the tags of a template find: the work tables and what is known of the result.
#pragma once

#include <kainjow/mustache.hpp>
#include <string_view>

#include "core/records.h"
#include "output/report/report_values.h"

namespace kelvar {

// By the names that report.h gives them.
kainjow::mustache::data fields_of(Database& database, const ReportValues& result);

// How many entries the list has that a section's name means; 1 for anything else.
double entries(std::string_view name, std::size_t payments, const ReportValues& result);

}  // namespace kelvar
