#pragma once

namespace kelvar {

// Lets screen readers see a BarChart as a chart whose children are its bars, each named in words.
// Harmless when called again.
void make_bar_charts_accessible();

}  // namespace kelvar
