// A projection by calendar years: where money comes from and goes to in each of them.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/projection.h"

namespace kelvar {

// In dollars and whole cents: beginning + earnings - fees - paid = ending, and each ending is the next
// beginning. A year reaches from the last payment of the year before to its own last payment.
struct YearRow {
    int year = 0;
    std::int16_t age = 0;  // in the month of its last payment
    int payments = 0;
    double beginning = 0.0;  // at first the value at the first periodic payment
    double earnings = 0.0;   // with what rounding to cents leaves over
    double fees = 0.0;       // with those before the payments they add up to the ledger's
    double paid = 0.0;       // without a lump sum
    double ending = 0.0;     // balance after the last payment of the year
};

// One row a year; none without periodic payments. `birth` is the participant's.
std::vector<YearRow> years_of(const Projection& projection, Date birth, double fee);

// Payments, earnings, fees and what is paid of all years; the rest is 0.
YearRow total_of(const std::vector<YearRow>& years);

}  // namespace kelvar
