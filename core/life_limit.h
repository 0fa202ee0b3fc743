// The plan's limit on how long payments may run.
#pragma once

namespace kelvar {

// Age at the first payment (whole years) and the age, that plus the divisor of the table, at which
// the life expectancy or the minimum distribution years end.
struct LifeLimit {
    int lookup_age = 0;
    double life_expectancy_age = 0.0;
};

// True when `number_of_payments` payments, `frequency` a year, last beyond the limit. Ending exactly
// there is accepted. The years are compared as they are, without rounding.
inline bool payments_exceed_life(int number_of_payments, int frequency, const LifeLimit& limit) {
    const double years = static_cast<double>(number_of_payments) / frequency + limit.lookup_age;
    return years > limit.life_expectancy_age;
}

}  // namespace kelvar
