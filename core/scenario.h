// The participant's data and choices, written by the input screens and read by the projections.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/dates.h"

namespace kelvar {

// Distribution methods as `method` holds them.
enum Method : std::int16_t { no_method = 0, lump_sum = 1, periodic_payments = 2, partial_lump_sum = 3 };

// Ways to say how long payments run, as `length_option` holds them. Joint life expectancy is
// by_life_expectancy with `joint_life` set.
enum LengthOption : std::int16_t {
    no_length = 0,
    by_number_of_payments = 1,
    by_dollar_amount = 2,
    by_life_expectancy = 3
};

// One instance for the process. Money is in dollars, rates are percent per year, ages whole years.
struct Scenario {
    std::string name{};  // on the printouts; may be empty
    Date birth_date{no_date};
    Date entry_date{no_date};          // the day on which the first payment month was accepted
    std::int16_t current_age = 0;      // today; on the birthday itself still the younger age
    std::int16_t over_72_flag = 0;     // 1 when the latest first payment year is chosen
    std::int16_t first_pay_month = 0;  // 1..12
    std::int16_t first_pay_year = 0;
    std::int16_t scenario_month = 0;  // month in which the payments after a partial lump sum begin
    std::int16_t scenario_year = 0;
    std::int16_t screen_height = 0;  // standard size of a screen, twips
    std::int16_t screen_width = 0;
    double main_offset_x = 0.0;  // left and top edge of the main window, device-independent pixels
    double main_offset_y = 0.0;

    // From here to second_value, and the ages and months above: what a return to the menu clears.
    std::int16_t method = no_method;
    std::int16_t frequency = 0;  // payments per year: 1, 2, 4 or 12; 0 not chosen
    double fixed_amount = 0.0;
    std::int16_t number_of_payments = 0;
    std::int16_t length_option = no_length;
    bool joint_life = false;
    double present_value = 0.0;
    double partial_amount = 0.0;
    std::string partial_percent{};  // of present_value, two decimals
    double lump_start_value = 0.0;
    double total_paid = 0.0;
    double start_value = 0.0;   // value of the account at the first payment
    double second_value = 0.0;  // value at the first payment after a partial lump sum

    double portfolio_click_x = 0.0;  // in the main window, device-independent pixels
    double portfolio_click_y = 0.0;
    std::int16_t portfolio_index = 0;      // 0..3, the highest risk first
    std::vector<double> selected_rates{};  // in list order
    std::int16_t fee_amount = 0;           // per year, whole dollars
    std::string message_text{};
    std::int16_t lookup_age = 0;         // participant's key into the life expectancy tables
    std::int16_t spouse_lookup_age = 0;  // spouse's key into the joint table
    double life_expectancy_age = 0.0;    // lookup age plus divisor
    std::int16_t answer = 0;             // last yes/no message: 1 yes, 0 no
    std::string help_file{};             // full path

    Date spouse_birth_date{no_date};
    std::int16_t spouse_current_age = 0;
    std::int16_t payment_start_age = 0;  // when periodic payments start
};

// True when the payments run over the joint table's years; `joint_life` alone can be left from before
// another length was chosen.
inline bool over_joint_life(const Scenario& scenario) {
    return scenario.length_option == by_life_expectancy && scenario.joint_life;
}

}  // namespace kelvar
