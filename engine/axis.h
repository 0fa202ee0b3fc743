// Upper bound of the value axis of all charts, which starts at 0.
#pragma once

namespace kelvar {

// The bound for a largest value in dollars: rounded up to its first two digits, always to the next
// step, then to a whole number, at least 1: 123,456.78 and 120,000 give 130,000, 5.5 gives 6. A
// negative value counts as 0, and so does what is no number; an infinite one gives a finite bound.
double y_max(double largest);

}  // namespace kelvar
