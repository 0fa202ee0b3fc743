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
    std::chrono::year_month_day born_before;
    int months;
};
inline constexpr FederalAge federal_ages[] = {{std::chrono::year{1949} / 7 / 1, 70 * 12 + 6},
                                              {std::chrono::year{1951} / 1 / 1, 72 * 12},
                                              {std::chrono::year{1960} / 1 / 1, 73 * 12},
                                              {std::chrono::year::max() / 12 / 31, 75 * 12}};

// Dollars a year. The lump sum projection charges a fee of its own, whatever fee its screen shows.
inline constexpr std::int16_t yearly_fee = 80;
inline constexpr double lump_sum_fee = 50.0;

// Growth is compounded and fees are charged by the day, on this many days a year, also in leap years.
inline constexpr double days_per_year = 365.0;

// How often payments are made, in the order of the screens' boxes.
struct Frequency {
    std::int16_t payments_per_year = 0;
    std::string_view name;       // "Monthly", "Annually"
    std::string_view heading;    // "Monthly", "Annual"
    std::string_view adjective;  // "monthly", "annual"
    std::string_view period;     // from payment to payment, to be read after "a"
};
inline constexpr Frequency frequencies[] = {
    {12, "Monthly", "Monthly", "monthly", "month"},
    {4, "Quarterly", "Quarterly", "quarterly", "quarter"},
    {2, "Semi-Annually", "Semi-Annual", "semi-annual", "half-year"},
    {1, "Annually", "Annual", "annual", "year"}};

// Without words for any other number of payments a year.
constexpr Frequency frequency(int payments_per_year) {
    for (const Frequency& known : frequencies) {
        if (known.payments_per_year == payments_per_year) {
            return known;
        }
    }
    return {};
}

}  // namespace kelvar::plan
