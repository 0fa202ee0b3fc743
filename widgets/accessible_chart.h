#pragma once

namespace kelvar {

// Lets screen readers see a Chart as a chart whose children are its places, each named in words.
// Harmless when called again.
void make_charts_accessible();

}  // namespace kelvar
