// The plan's own figures: ages, months and fees that its rules name, each in one place.
#pragma once

#include <chrono>
#include <cstdint>
#include <string_view>

namespace kelvar::plan {

// Ages in whole years.
inline constexpr int youngest_participant = 16;
inline constexpr int oldest_participant = 100;
inline constexpr int minimum_distribution_from = 70;  // below it the single life table counts
inline constexpr int oldest_of_single_life_table = 69;
inline constexpr int federal_uniform_table_from = 72;  // the rows before it are this program's own
inline constexpr int oldest_for_joint_life = 90;       // of the participant, at the nearest birthday
inline constexpr int youngest_spouse = 35;
inline constexpr int least_spouse_difference = 10;  // the spouse must be more than this much younger
inline constexpr int most_years_since_spouse_birth = 100;  // calendar years
inline constexpr int oldest_commencement = 100;  // of payments beyond life that are insisted on

// Payments may begin up to this month, its 31st, of the year after the participant reaches 70½.
inline constexpr int last_month_of_deadline = 3;
// After 70½, from this age on, what follows a first payment in the last year may begin a year later.
inline constexpr int late_first_payment_from = 71;

// The age from which federal law asks for minimum distributions, in months. It has moved since the
// plan's own age of 70½, by date of birth.
struct FederalAge {
    std::chrono::sys_days born_before;
    int months;
};
inline constexpr FederalAge federal_ages[] = {{std::chrono::year{1949} / 7 / 1, 70 * 12 + 6},
                                              {std::chrono::year{1951} / 1 / 1, 72 * 12},
                                              {std::chrono::year{1960} / 1 / 1, 73 * 12},
                                              {std::chrono::sys_days::max(), 75 * 12}};

// Dollars a year. The lump sum projection charges a fee of its own, whatever fee its screen shows.
inline constexpr std::int16_t yearly_fee = 80;
inline constexpr double lump_sum_fee = 50.0;

// Growth is compounded and fees are charged by the day, on this many days a year, also in leap years.
inline constexpr double days_per_year = 365.0;

// Name of 1, 2, 4 or 12 payments a year: "Annually", "Semi-Annually", "Quarterly", "Monthly"; "" for
// any other number.
constexpr std::string_view frequency_name(int payments_per_year) {
    switch (payments_per_year) {
        case 1:
            return "Annually";
        case 2:
            return "Semi-Annually";
        case 4:
            return "Quarterly";
        case 12:
            return "Monthly";
        default:
            return "";
    }
}

// The time from payment to payment, to be read after "a": "year", "half-year", "quarter", "month"; ""
// for any other number of payments a year.
constexpr std::string_view period_name(int payments_per_year) {
    switch (payments_per_year) {
        case 1:
            return "year";
        case 2:
            return "half-year";
        case 4:
            return "quarter";
        case 12:
            return "month";
        default:
            return "";
    }
}

}  // namespace kelvar::plan
