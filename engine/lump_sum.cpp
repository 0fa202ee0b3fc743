#include "engine/lump_sum.h"

#include <cmath>

#include "core/numbers.h"
#include "core/plan.h"

namespace kelvar {

double get_startvalue(double present_value, double rate, int days) {
    const double fee = days * (plan::lump_sum_fee / plan::days_per_year);
    const double growth = std::pow(1.0 + rate * 0.01 / plan::days_per_year, days);
    return round_to_cents(growth * present_value - fee);
}

}  // namespace kelvar
