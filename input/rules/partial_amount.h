// The amount certain of a partial lump sum, in dollars or as a percentage of the balance.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/records.h"
#include "core/scenario.h"
#include "input/rules/refusal.h"

namespace kelvar {

// The amount certain typed, in dollars rounded to cents, its sign kept; nothing when the text is no
// number or an amount too large to be kept to the cent.
std::optional<double> read_partial_amount(std::string_view text);

// Above 0 and below 100.
bool is_percentage(double percentage);
// A typed percentage above 0 and below 100; nothing otherwise.
std::optional<double> read_percentage(std::string_view text);

// What is said of any other percentage.
inline constexpr Refusal invalid_percentage{"Invalid percentage of Partial Lump Sum amount",
                                            "cmbPercent"};

double amount_of_percentage(double present_value, double percentage);           // cents
std::string percentage_of_amount(double present_value, double partial_amount);  // "25.00"

// What is typed must be an amount; nothing is none.
Check check_amount_typed(std::optional<double> typed);

// The amount certain must be above 0 and below the present value.
Check partial_msg(const Scenario& scenario);

// From age 70½ on, an amount certain that is followed by payments in a later year only must not be
// below the present value by the divisor at the participant's age in the month of the first payment. A
// table without that age refuses nothing.
Check check_minimum_distribution(const Scenario& scenario, Database& database);

}  // namespace kelvar
