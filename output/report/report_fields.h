// What the tags of a template find: the work tables and what is known of the result.
#pragma once

#include <kainjow/mustache.hpp>
#include <string>
#include <string_view>

#include "core/records.h"
#include "output/report/report_values.h"

namespace kelvar {

// What the tags of a template's text name, by the names that report.h gives them: collecting all
// payments for a template without them would take longer than printing it.
kainjow::mustache::data fields_of(const std::string& text, Database& database,
                                  const ReportValues& result);

// How many entries the list has that a section's name means; 1 for anything else.
double entries(std::string_view name, std::size_t payments, const ReportValues& result);

}  // namespace kelvar
