// Which report templates a Print prints, and in which order.
#pragma once

#include <string>
#include <vector>

namespace kelvar {

enum class Parts { everything, summary_and_years, summary };

// File names of the templates for a method of distribution and a length option, as the scenario holds
// them. The summary comes first, then the years, then the schedule that suits the length option; a lump
// sum has a summary only. Where no schedule suits, there are no years either: of everything, periodic
// payments print their summary twice and a partial lump sum prints it alone.
std::vector<std::string> report_templates(int method, int length_option,
                                          Parts parts = Parts::everything);

}  // namespace kelvar
