// Ticks of the value axis of all charts.
#pragma once

namespace kelvar {

// Distance of the ticks from 0 up to a whole bound of at least 1: the smallest whole 1, 2, 2.5 or 5
// times a power of ten that makes at most `most` (at least 1) steps, so 130,000 in 7 gives 20,000. The
// last tick may stand below the bound.
double tick_step(double bound, int most);

}  // namespace kelvar
