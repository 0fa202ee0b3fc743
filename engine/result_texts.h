// Texts of results that screens, work tables and paper share.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/projection.h"

namespace kelvar {

std::string money_text(double dollars);  // "$578,796.05"
std::string fee_text(std::int16_t fee);  // "$80"
// Why the fee of a lump sum is not the annual fee that stands beside it.
std::string lump_sum_fee_text();
// A rate (percent per year) as the rate list shows it: "5%" for a lump sum; before payments a blank
// stands where a negative rate has its sign, " 5%".
std::string rate_text(double rate, std::int16_t method);

std::string count_text(int count, std::string_view thing);  // "1 payment", "349 payments"
std::string time_text(int months);                          // "15 years and 4 months"

std::string_view method_title(std::int16_t method);          // "Periodic Payments"
std::string title_with_frequency(const Scenario& scenario);  // "Periodic Payments - Monthly"
// What the table counts that was looked up: "single life expectancy", "joint life expectancy", or from
// the age on at which the other table begins, "minimum distribution years"; and where the divisor comes
// from, in words. For 70 and 71 the table has a row of its own, older than the federal one.
std::string_view table_name(const Scenario& scenario);
std::string_view table_source(const Scenario& scenario);
// Why there are no payments to show; empty for a complete projection.
std::string_view no_result_text(Outcome outcome);

}  // namespace kelvar
