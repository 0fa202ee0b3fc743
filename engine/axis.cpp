#include "engine/axis.h"

#include <algorithm>
#include <cmath>

namespace kelvar {

namespace {

constexpr double largest_bounded = 1e300;  // beyond it the reckoning below leaves the doubles

}  // namespace

double y_max(double largest) {
    const double value = largest > 0.0 ? std::min(largest, largest_bounded) : 0.0;
    double power = 10.0;  // 10 to the number of digits before the point
    while (power <= std::floor(value)) {
        power *= 10.0;
    }
    const double bound = std::floor((value * 100.0 + power) / power) * power / 100.0;
    return std::max(1.0, std::round(bound));
}

}  // namespace kelvar
