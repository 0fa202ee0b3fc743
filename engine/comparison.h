// The chosen rates side by side.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "engine/projection.h"

namespace kelvar {

// A lump sum at one rate, in dollars.
struct LumpSumValue {
    double rate = 0.0;        // percent per year
    double value = 0.0;       // at the payment
    double difference = 0.0;  // against today's balance
};

std::vector<LumpSumValue> lump_sum_values(const Scenario& scenario, Date today);

// The payments at one rate. Without an outcome of complete only the rate says something.
struct ComparedRate {
    double rate = 0.0;    // percent per year
    bool added = false;   // nobody chose it: what comes of it if it earns nothing
    bool fallen = false;  // after a fall of the market
    Outcome outcome = Outcome::no_payments;
    std::string reason{};      // why there are no payments; see no_result_text of engine/least_amount.h
    double first_value = 0.0;  // of the account at the first periodic payment, dollars
    double first_amount = 0.0;
    double full_year_amount =
        0.0;  // of one payment in the last year that has all of its payments; 0 if none
    int payments = 0;
    Date last_payment{no_date};
    std::int16_t last_age = 0;  // in the month of the last payment
    double earnings = 0.0;      // of the ledger
    double fees = 0.0;
    double total = 0.0;              // with a lump sum
    std::vector<double> balances{};  // after the last payment of each year, from the first on
};

// What a projection comes to, without its balances. The one payment of a lump sum is its first and
// last.
ComparedRate compared(const Scenario& scenario, const Projection& projection);

struct Comparison {
    Date today{no_date};
    int first_year = 0;               // in which the periodic payments begin
    std::vector<ComparedRate> rates;  // in the order chosen, then what is added
};

// What is compared besides the chosen rates.
struct WhatIf {
    bool falls = false;          // each rate once more, after it, with what a fall has left
    bool earns_nothing = false;  // 0 %, unless it is among the chosen ones
};

// The scenario after a fall of the market by 20 % today: with four fifths of the balance, in whole
// cents, and otherwise the same; a lump sum or payments of a certain amount stay that amount.
Scenario after_fall(Scenario scenario);

// A rate in words, in the order of its columns: rate, value at the first payment, first amount, amount
// in the last full year, number of payments, month of the last one as "7/2049", age, earnings, fees,
// total. One after a fall says so beside its rate. Without payments the second text says why, and the
// others are empty. `plain` is for other programs: as "734.30" for "$734.30".
using RateTexts = std::array<std::string, 10>;
RateTexts rate_texts(const ComparedRate& rate, bool plain = false);

// Projects the scenario at each of its chosen rates.
Comparison compare(const Scenario& scenario, Date today, const WhatIf& what_if = {});

// What the spread of the chosen rates means, and between three or more what each step adds. Empty with
// less than two different rates that are complete.
std::string spread_text(const Scenario& scenario, const Comparison& comparison);

}  // namespace kelvar
