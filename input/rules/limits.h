// The limits that the checks of Next set, to be named before anything is entered: the outermost figure
// that they accept. They are found by asking the checks themselves, so that the figure is accepted and
// the next one beyond it is not.
#pragma once

#include <optional>
#include <string_view>

#include "core/records.h"
#include "core/scenario.h"

namespace kelvar {

// First day of the latest month in which payments may begin; nothing without a date of birth.
std::optional<Date> latest_first_month(Date birth, Date today);

// First day of the month up to whose end payments should have begun, the year after age 70½ was
// reached; nothing while it has not passed, and without a date of birth.
std::optional<Date> passed_deadline(Date birth, Date today);

// Between which days a participant or a spouse is born who is accepted today; the spouse is at least 35
// and more than ten years younger than the participant.
struct Births {
    Date after;  // the first day is the one after it
    Date up_to;
};
Births participant_births(Date today);
Births spouse_births(int participant_age, Date today);

// The least amount certain (dollars, whole cents) where the minimum distribution is checked; nothing
// where it is not, or where no amount certain is accepted. How often the rest is paid does not matter.
std::optional<double> least_partial_amount(const Scenario& scenario, Database& database, Date today);

// The greatest number of payments, up to the 32767 that can be kept, and the least dollar amount of
// payments (whole cents). Nothing while there is no frequency, and where no number or amount is
// accepted.
std::optional<int> most_payments(const Scenario& scenario, Database& database, Date today);
std::optional<double> least_amount(const Scenario& scenario, Database& database, Date today);

// The scenario with the longest payments of a dollar amount that Next accepts, as it stores it; nothing
// where no amount is accepted.
std::optional<Scenario> with_amount(const Scenario& scenario, Database& database, Date today);

// The number of payments that the life expectancy gives, the participant's own or the one with the
// spouse whose date of birth stands in a box (MM/DD/YYYY). Nothing while there is no frequency or no
// acceptable spouse, and where the table does not have the age.
std::optional<int> payments_over_life(const Scenario& scenario, Database& database, Date today);
std::optional<int> payments_over_joint_life(const Scenario& scenario, std::string_view spouse_mask_text,
                                            Database& database, Date today);

}  // namespace kelvar
