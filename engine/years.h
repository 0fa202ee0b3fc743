// A projection by calendar years: where money comes from and goes to in each of them.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
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
    double paid = 0.0;
    double ending = 0.0;  // balance after the last payment of the year
    // In dollars: what federal law asks for, in a year that pays less; see engine/federal_minimum.h.
    double federal_minimum = 0.0;
    // What the row is instead of a year's payments; empty for a year.
    std::string_view label{};
};

inline constexpr std::string_view lump_sum_label = "Lump sum";
inline constexpr std::string_view rounding_label = "Adjustment";

// One row a year; none without periodic payments. `birth` is the participant's. A partial lump sum has
// a row ahead of the years, which reaches from today to the first periodic payment. Where the earnings
// of the years count cents of rounding, a last row takes them out: it has no other figure, and with it
// the earnings add up to the ledger's, which names rounding by itself.
std::vector<YearRow> years_of(const Projection& projection, Date birth, double fee);

// A row in words, in the order of its columns: year, age, payments or what it is instead, beginning,
// earnings, fees, paid, ending. What the row does not have is empty; a year below the federal minimum
// has an asterisk. `plain` is for other programs: as "734.30" for "$734.30", and without asterisks.
using YearTexts = std::array<std::string, 8>;
YearTexts year_texts(const YearRow& row, bool plain = false);

// Payments, earnings, fees and what is paid of all rows; the rest is 0.
YearRow total_of(const std::vector<YearRow>& years);

}  // namespace kelvar
