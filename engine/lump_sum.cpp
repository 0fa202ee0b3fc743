#include "engine/lump_sum.h"

#include <cmath>

#include "core/numbers.h"

namespace kelvar {

double get_startvalue(double present_value, double rate, int days) {
    const double fee = days * (50.0 / 365.0);
    const double growth = std::pow(1.0 + rate * 0.01 / 365.0, days);
    return round_to_cents(growth * present_value - fee);
}

}  // namespace kelvar
