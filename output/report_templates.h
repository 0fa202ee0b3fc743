// Which report templates a Print prints, and in which order.
#pragma once

#include <string>
#include <vector>

namespace kelvar {

// File names of the templates for a method of distribution and a length option, as the scenario holds
// them. The summary comes first, then the schedule that suits the length option. Where no schedule
// does, periodic payments print their summary twice and a partial lump sum prints it alone.
std::vector<std::string> report_templates(int method, int length_option);

}  // namespace kelvar
