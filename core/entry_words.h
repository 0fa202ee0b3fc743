// The words for what is chosen on the steps, as participants' files and tables of a plan have them.
// Frequencies have those of core/plan.h.
#pragma once

#include <string_view>

#include "core/scenario.h"

namespace kelvar {

struct Word {
    int value = 0;
    std::string_view text;
};
inline constexpr Word methods[] = {{lump_sum, "lump sum"},
                                   {periodic_payments, "periodic payments"},
                                   {partial_lump_sum, "amount certain with periodic payments"}};
inline constexpr Word lengths[] = {{by_number_of_payments, "number of payments"},
                                   {by_dollar_amount, "dollar amount"},
                                   {by_life_expectancy, "life expectancy"}};

}  // namespace kelvar
