// What a participant has entered on the four steps, in their order, as it is typed or chosen.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/dates.h"
#include "core/scenario.h"

namespace kelvar {

inline constexpr int longest_name = 60;  // characters

// Nothing stands for what has not been entered. Amounts are in dollars and whole cents.
struct Entries {
    std::optional<std::string> name{};  // on the printouts; of at most that length
    std::optional<Date> birth_date{};
    std::optional<double> present_value{};
    std::optional<int> first_pay_month{};  // 1..12
    std::optional<int> first_pay_year{};

    std::optional<Method> method{};          // a rollover counts as none
    std::optional<int> frequency{};          // payments per year: 1, 2, 4 or 12
    std::optional<double> partial_amount{};  // this or the next, whichever was entered last
    std::optional<double> partial_percent{};
    std::optional<int> scenario_month{};  // 1..12
    std::optional<int> scenario_year{};

    std::optional<LengthOption> length_option{};
    std::optional<bool> joint_life{};
    std::optional<int> number_of_payments{};
    std::optional<double> fixed_amount{};
    std::optional<Date> spouse_birth_date{};

    std::optional<std::vector<double>> selected_rates{};  // percent per year, the lowest first
    std::optional<bool> all_rates{};                      // the box for all of them is ticked too
    std::optional<double> shown_rate{};                   // of the result that was looked at last

    std::vector<Entries>
        choices{};  // results that were kept, each with all that leads to it but the name

    bool operator==(const Entries&) const = default;
};

}  // namespace kelvar
