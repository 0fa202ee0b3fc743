// Rules of the distribution screen: frequency, amount certain, commencement of the payments after it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/module1.h"
#include "input/rules/refusal.h"

namespace kelvar {

// Payments per year of the boxes Monthly, Quarterly, Semi-Annually, Annually, index 0 to 3.
std::int16_t frequency_of_box(int index);

// The amount certain typed, in dollars rounded to cents, its sign kept; nothing when the text is no
// number or an amount too large to be kept to the cent.
std::optional<double> read_partial_amount(std::string_view text);

// A typed percentage above 0 and below 100; nothing otherwise.
std::optional<double> read_percentage(std::string_view text);

double amount_of_percentage(double present_value, double percentage);           // cents
std::string percentage_of_amount(double present_value, double partial_amount);  // "25.00"

// The amount certain must be above 0 and below the present value.
Check partial_msg(const Scenario& scenario);

// Years and months in which the payments after the amount certain may begin: after the first payment
// and not after the deadline, March of the last year. The list can be empty.
std::vector<int> scenario_years(const Scenario& scenario, Date today);
std::vector<int> scenario_months(const Scenario& scenario, int chosen_year, Date today);

// The check of the month in which the payments after the amount certain begin, once more before a
// result is computed: the day can have changed since, and with it the months on offer.
Check check_commencement(const Scenario& scenario, Date today);

// The checks of Next for periodic payments.
Check check_periodic(const Scenario& scenario);

// The checks of Next for an amount certain with periodic payments, in the plan's order. Asks the
// question about payments beyond the life expectancy, and stores `current_age` and
// `life_expectancy_age` on the way. `scenario_month` and `scenario_year` hold the chosen commencement,
// 0 when nothing could be chosen.
Check check_partial(Module1& module, std::string_view partial_text);

}  // namespace kelvar
