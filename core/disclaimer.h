// The notes that every result comes with, on the screen and on paper, letter for letter: double and
// trailing blanks belong to them.
#pragma once

namespace kelvar {

inline constexpr const char* disclaimer[] = {
    "The Assumed Rates of Returns for the Future are based on historical returns, volatility and "
    "correlations, but not exclusively. They are forward-looking, therefore, they will not match "
    "historical returns.",
    "A change in the method of distribution,  payment date or annual rate of return could "
    "substantially change the figures on the next screen.",
    "The figures on the payment schedule are only estimates and are for illustration purposes only.  "
    "The payment schedule is not intended nor shall it in any way be construed as a guarantee of rate "
    "of return,  account value or payment amounts.",
    "The estimated distribution payment is before any taxes, or penalties (if applicable). ",
    "For periodic payments: In this software, each calendar year, your account's distribution will be "
    "recalculated before the 1st payment for that year. This recalculation is necessary in order to "
    "reflect any growth in your account.  The annual recalculation will be based on the remaining "
    "balance in your account and the number of installment payments left.  Consequently, the dollar "
    "amount of each year's installment payments will either increase, decrease or remain the same "
    "relative to the previous year's payment(s). ",
    "This projection is based upon your current life expectancy/joint life expectancy/minimum "
    "distribution and does not reflect the fact that under the Plan, your life expectancy will be "
    "recalculated annually.  The amount of your total annual distribution may vary significantly from "
    "the amounts of this projection due to this recalculation feature and market fluctuation.",
    "Pursuant to IRS rules, participants who defer distribution until after the close of the year in "
    "which they reach age 70 1/2, or sever from City service if older than age 70 1/2, must receive "
    "two minimum distribution payments in that year. This software does not incorporate this "
    "condition. ",
};

}  // namespace kelvar
