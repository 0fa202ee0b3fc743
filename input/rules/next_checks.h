// What Next checks on each input screen, in the plan's order; the first fault is returned. The rules
// themselves stand in the files named after what they rule on.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/records.h"
#include "core/scenario.h"
#include "input/rules/refusal.h"

namespace kelvar {

struct ParticipantEntry {
    int month = 0;                // chosen first payment month, 1..12
    int year = 0;                 // chosen first payment year, 0 while none is offered
    std::optional<double> value;  // typed, dollars; nothing when it is no amount
    std::string birth_text;
};

// Participant data, up to the question whether a date of birth was entered at all.
Check chk_fields(const ParticipantEntry& entry, Date today);

// What is said while no method is chosen that can be calculated; Next is grey.
inline constexpr Refusal method_to_choose{"Choose how the account is to be paid out to go on.",
                                          "optmethod_0"};

// Periodic payments.
Check check_periodic(const Scenario& scenario);

// An amount certain with periodic payments; `typed` in dollars, nothing when it is no amount. Stores
// `current_age`, `lookup_age` and `life_expectancy_age` on the way. `scenario_month` and
// `scenario_year` hold the chosen commencement, 0 when nothing could be chosen. Payments that begin
// beyond the life expectancy can be a question; `insists` after the user's No, which leaves out the
// checks behind it.
Check check_partial(Scenario& scenario, Database& database, std::optional<double> typed, Date today,
                    bool insists = false);

struct LengthEntry {
    LengthOption option = no_length;
    bool joint = false;
    std::optional<double> number{};  // typed; nothing when it is no number
    std::optional<double> amount{};  // the same in dollars
};

// The length of payments. Stores what it means: number of payments or fixed amount, look-up ages and
// life expectancy. A failed look-up for a life expectancy is told and passed over.
Check chk_fld(const LengthEntry& entry, Scenario& scenario, Database& database, Date today);

}  // namespace kelvar
