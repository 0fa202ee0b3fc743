#include "widgets/axis_ticks.h"

#include <cmath>
#include <initializer_list>

namespace kelvar {

double tick_step(double bound, int most) {
    for (double power = 1.0;; power *= 10.0) {
        for (const double step : {1.0 * power, 2.0 * power, 2.5 * power, 5.0 * power}) {
            if (step == std::floor(step) && !(bound > step * most)) {
                return step;
            }
        }
    }
}

}  // namespace kelvar
