// Which report templates a Print prints, and in which order.
#pragma once

#include <string>
#include <vector>

#include "core/visit.h"

namespace kelvar {

// File names of the templates for a method of distribution and a length option, as the scenario holds
// them. The summary comes first, then the years, then the schedule that suits the length option; a lump
// sum has a summary only. Where no schedule suits, there are no years either: with payments, periodic
// payments print their summary twice and a partial lump sum prints it alone.
std::vector<std::string> report_templates(int method, int length_option, PrintedParts parts = {});

}  // namespace kelvar
