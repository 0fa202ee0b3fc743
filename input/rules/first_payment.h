// The month and year of the first payment: what is offered, and whether it is still to come.
#pragma once

#include <algorithm>
#include <numeric>
#include <string_view>
#include <vector>

#include "core/scenario.h"
#include "input/rules/refusal.h"

namespace kelvar {

// The year up to whose March payments may begin: the one after age 70½ is reached, or the next one
// where that has passed.
int deadline_year(Date birth, Date today);

// Years in which payments may begin: the present one to that of the deadline. None without a date of
// birth.
std::vector<int> first_payment_years(Date birth, Date today);

// Months that may be chosen when the latest of the offered years is, or is not, chosen.
std::vector<int> first_payment_months(bool latest_year);

// What is said of a month that cannot be chosen, or no longer.
inline constexpr std::string_view invalid_month = "Invalid month that you wish to begin payments.";

// Refuses a month that has passed. Year 0, while none is offered, counts as the present year.
Check check_month_to_come(int month, int year, Date today);

// The check of the month once more before a result is computed: the day can have changed since. Refused
// is a first payment month that has passed, and any month when the clock was set back: ages and months
// on offer were those of a later day.
Check check_first_payment(const Scenario& scenario, Date today);

// The whole numbers from the first to the last, both included; none when the last comes before it.
inline std::vector<int> all_from(int first, int last) {
    std::vector<int> all(static_cast<std::size_t>(std::max(0, last - first + 1)));
    std::iota(all.begin(), all.end(), first);
    return all;
}

inline bool is_offered(const std::vector<int>& offered, int chosen) {
    return std::ranges::find(offered, chosen) != offered.end();
}

}  // namespace kelvar
