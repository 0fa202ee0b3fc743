// Results that were kept, side by side: what each comes to, and when which has paid more.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "engine/projection.h"

namespace kelvar {

// A result that was kept: what it is projected from, and its rate (percent per year).
struct Choice {
    Scenario scenario;
    double rate = 0.0;
    bool fallen = false;  // with what a fall of the market has left
};

struct ChosenResult {
    Choice choice;
    std::string name;       // as choice_name has it
    Projection projection;  // of the rows only when it is complete
    std::string reason;     // why there are no figures; empty when it is complete
};

struct Choices {
    Date today{no_date};
    std::vector<ChosenResult> results;  // in the order kept; screens and sentences count from 1
};

// What is chosen, in few words and without its rate: "lump sum", "monthly over single life", "120
// monthly payments", "$2,500.00 a month", "$25,000.00, then quarterly for 10 years".
std::string choice_name(const Scenario& scenario);

// Projects all of them with one today. One whose first payment month has passed has no figures.
Choices compare_choices(const std::vector<Choice>& choices, Date today);

// A result in words, in the order of its columns: what it is, rate, lump sum, first amount, amount in
// the last full year, number of payments, month of the last one (or of the lump sum that is all) as
// "4/2055", age then, earnings, fees, total. Without figures the third text says why, and those after
// it are empty. `plain` is for other programs: as "734.30" for "$734.30".
using ChoiceTexts = std::array<std::string, 11>;
ChoiceTexts choice_texts(const ChosenResult& result, bool plain = false);

// The same after a fall of the market today; see after_fall of a scenario.
Choice after_fall(const Choice& choice);

// For each result a value (dollars) at the end of every calendar year, from the one in which the first
// of them all begins to the one in which the last ends.
struct YearlyLines {
    int first_year = 0;
    std::vector<int> ages;                    // the participant's, at each year's end
    std::vector<std::vector<double>> values;  // one for each result; empty without figures
};
YearlyLines paid_so_far(const Choices& choices);
// The balance after what was paid last: until the first payment that of today, and after the last one
// nothing. What it earns from then to the year's end is not in it.
YearlyLines balances_left(const Choices& choices);

// When which has paid more, a sentence for each neighbouring pair, or, with `marked`, for each other
// one against that; those without figures are passed over. "Paid so far, choice 1 (lump sum
// $323,701.26 in March, 2027) is ahead until November, 2044, age 89; from December, 2044 on choice 2
// (monthly over single life at 5%) has paid more." A month counts with all that is paid in it.
std::vector<std::string> even_texts(const Choices& choices,
                                    std::optional<std::size_t> marked = std::nullopt);

}  // namespace kelvar
