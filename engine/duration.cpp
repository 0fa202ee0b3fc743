#include "engine/duration.h"

#include <cmath>

namespace kelvar {

std::optional<int> years_payments_last(double withdrawal, double rate) {
    if (withdrawal <= rate) {
        return std::nullopt;
    }
    const double years = rate == 0.0
                             ? 100.0 / withdrawal
                             : std::log(withdrawal / (withdrawal - rate)) / std::log1p(rate / 100.0);
    return static_cast<int>(std::floor(years));
}

}  // namespace kelvar
