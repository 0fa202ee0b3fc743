// Choices side by side, least amounts and prices. Expected figures were computed apart from this
// program, by a script that walks through the months one by one; prices as the cited table has them.
#include "engine/choices.h"

#include <gtest/gtest.h>

#include "engine/comparison.h"
#include "engine/least_amount.h"
#include "engine/prices.h"

namespace kelvar::test {
namespace {

using namespace std::chrono_literals;
using Texts = std::vector<std::string>;

constexpr Date today = 2026y / 11 / 22;

// 318,440.17 of somebody of 71, from March 2027 for 28.2 years at most.
Scenario monthly(Method method, LengthOption length) {
    Scenario scenario;
    scenario.birth_date = 1955y / 4 / 15;
    scenario.method = method;
    scenario.present_value = 318440.17;
    scenario.first_pay_month = 3;
    scenario.first_pay_year = 2027;
    scenario.frequency = 12;
    scenario.length_option = length;
    scenario.number_of_payments = 338;
    scenario.fixed_amount = 2500.0;
    scenario.fee_amount = 80;
    scenario.lookup_age = 71;
    scenario.life_expectancy_age = 99.2;
    return scenario;
}

Scenario some_now() {
    Scenario scenario = monthly(partial_lump_sum, by_number_of_payments);
    scenario.partial_amount = 25000.0;
    scenario.scenario_month = 4;
    scenario.scenario_year = 2027;
    scenario.frequency = 4;
    scenario.number_of_payments = 40;
    return scenario;
}

std::vector<Choice> four_choices() {
    return {{monthly(lump_sum, no_length), 5.0},
            {monthly(periodic_payments, by_life_expectancy), 5.0},
            {monthly(periodic_payments, by_dollar_amount), 5.0},
            {some_now(), 5.0}};
}

TEST(Choices, AreNamedInFewWords) {
    Scenario scenario = monthly(periodic_payments, by_life_expectancy);
    EXPECT_EQ(choice_name(scenario), "monthly over life");
    scenario.lookup_age = 69;
    scenario.frequency = 2;
    EXPECT_EQ(choice_name(scenario), "semi-annually over single life");
    scenario.joint_life = true;
    EXPECT_EQ(choice_name(scenario), "semi-annually over joint life");
    scenario.length_option = by_number_of_payments;
    EXPECT_EQ(choice_name(scenario), "338 semi-annual payments");
    scenario.length_option = by_dollar_amount;
    EXPECT_EQ(choice_name(scenario), "$2,500.00 a half-year");
    scenario = some_now();
    EXPECT_EQ(choice_name(scenario), "$25,000.00, then quarterly for 10 years");
    scenario.number_of_payments = 41;
    EXPECT_EQ(choice_name(scenario), "$25,000.00, then 41 quarterly payments");
}

TEST(Choices, StandSideBySideAlsoAfterAFall) {
    std::vector<Choice> kept = four_choices();
    kept.push_back(after_fall(kept[2]));
    kept.push_back(kept[1]);
    kept.back().scenario.first_pay_year = 2026;
    const Choices choices = compare_choices(kept, today);
    const ChoiceTexts expected[] = {
        {"lump sum", "5%", "$323,701.26", "", "", "", "3/2027", "71", "$5,277.53", "$16.44",
         "$323,701.26"},
        {"monthly over life", "5%", "", "$957.67", "$3,925.45", "338", "4/2055", "100", "$395,475.48",
         "$2,274.63", "$711,641.23"},
        {"$2,500.00 a month", "5%", "", "$2,500.00", "$2,500.00", "185", "7/2042", "87", "$145,019.93",
         "$1,253.92", "$462,206.30"},
        {"$25,000.00, then quarterly for 10 years", "5%", "$25,000.00", "$7,498.89", "$12,094.34", "40",
         "1/2037", "81", "$94,228.13", "$814.03", "$411,854.23"},
        {"$2,500.00 a month after a fall", "5%", "", "$2,500.00", "$2,500.00", "135", "5/2038", "83",
         "$83,111.69", "$920.33", "$336,943.65"},
        {"monthly over life", "5%", "The first payment month, March, 2026, has passed."}};
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        EXPECT_EQ(choice_texts(choices.results[i]), expected[i]);
    }
    EXPECT_EQ(choice_texts(choices.results[0], true)[2], "323701.26");
    EXPECT_EQ(after_fall(kept[0]).scenario.present_value, 254752.14);

    const YearlyLines paid = paid_so_far(choices);
    const YearlyLines left = balances_left(choices);
    EXPECT_EQ(paid.first_year, 2027);
    EXPECT_EQ(paid.ages.front(), 72) << "at the end of 2027";
    EXPECT_EQ(paid.ages.size(), 29U);
    EXPECT_EQ(paid.values[0][17], 323701.26);
    EXPECT_EQ(paid.values[1][17], 325453.18) << "of 2044";
    EXPECT_EQ(left.values[0][0], 0.0);
    EXPECT_EQ(left.values[1][17], 294146.85);
    EXPECT_EQ(left.values[1][28], 0.0);
    EXPECT_EQ(paid.values[3][0], 47496.67);
    EXPECT_EQ(left.values[3][0], 284747.10);
    EXPECT_TRUE(left.values[5].empty());
}

TEST(Choices, MeetInTheMonthThatIsSaid) {
    const std::vector<Choice> kept = four_choices();
    const Choice& at_once = kept[0];
    const Choice& over_life = kept[1];
    const Choice& amount = kept[2];
    const auto said = [](const Choice& one, const Choice& two) {
        const Texts texts = even_texts(compare_choices({one, two}, today));
        return texts.empty() ? "" : texts.front();
    };
    const auto paid = [&](double dollars, int frequency, double rate) {
        Choice choice{amount.scenario, rate};
        choice.scenario.fixed_amount = dollars;
        choice.scenario.frequency = static_cast<std::int16_t>(frequency);
        return choice;
    };
    EXPECT_EQ(
        said(at_once, over_life),
        "Paid so far, choice 1 (lump sum $323,701.26 in March, 2027) is ahead until November, 2044, "
        "age 89; from December, 2044 on choice 2 (monthly over life at 5%) has "
        "paid more.");
    EXPECT_EQ(
        said(amount, paid(2500.0, 12, 4.0)),
        "Paid so far, choice 1 ($2,500.00 a month at 5%) and choice 2 ($2,500.00 a month at 4%) are "
        "even until January, 2041, age 85; from February, 2041 on choice 1 has paid more.");
    EXPECT_EQ(
        said(paid(2500.0, 12, 0.0), paid(30000.0, 1, 0.0)),
        "Paid so far, choice 2 ($30,000.00 a year at 0%) is ahead of choice 1 ($2,500.00 a month at "
        "0%) or even with it until September, 2037, age 82; from October, 2037 on choice 1 has paid "
        "as much.");
    EXPECT_TRUE(said(amount, amount).ends_with(" are even all along."));
    Choice other = over_life;
    other.scenario.frequency = 4;
    other.scenario.number_of_payments = 113;
    EXPECT_TRUE(
        said(over_life, other)
            .ends_with(" take turns in being ahead until March, 2055, age 99; from April, 2055 on "
                       "choice 1 has paid more."));
    EXPECT_EQ(
        said({at_once.scenario, 4.0}, after_fall(at_once)),
        "Paid so far, choice 1 (lump sum $322,638.86 in March, 2027) is ahead of choice 2 (lump sum "
        "after a fall $258,957.73 in March, 2027) all along: they never meet.");
    other = at_once;
    other.scenario.first_pay_month = 1;
    other.scenario.first_pay_year = 2028;
    EXPECT_EQ(said(over_life, other),
              "Paid so far, choice 1 (monthly over life at 5%) is ahead until "
              "December, 2027, age 72; then choice 2 (lump sum $337,516.33 in January, 2028) is ahead "
              "until May, 2045, age 90; from June, 2045 on choice 1 has paid more.");

    // Each with the next one, or all with one; what has no figures is passed over.
    other.scenario.first_pay_year = 2020;
    const Choices choices = compare_choices({at_once, other, over_life, amount, kept[3]}, today);
    const Texts neighbours = even_texts(choices);
    ASSERT_EQ(neighbours.size(), 3U);
    EXPECT_EQ(neighbours[1].find("Paid so far, choice 4 "), 0U);
    EXPECT_NE(neighbours[1].find("until April, 2049, age 94; from May, 2049 on choice 3 "),
              std::string::npos);
    const Texts with_life = even_texts(choices, 2);
    ASSERT_EQ(with_life.size(), 3U);
    EXPECT_NE(with_life[2].find("until October, 2047, age 92; from November, 2047 on choice 3 "),
              std::string::npos);
    EXPECT_TRUE(even_texts(choices, 1).empty());
}

TEST(LeastAmount, IsWhatItTakesToEndInTime) {
    Scenario scenario = monthly(periodic_payments, by_dollar_amount);
    EXPECT_EQ(least_amount_text(scenario, {8.0, 6.0, 5.0}, today),
              "To end in time it takes $1,773.48 a month at 5% and $2,420.23 at 8%.");
    scenario.frequency = 1;
    EXPECT_EQ(least_amount_text(scenario, {0.0}, today),
              "To end in time it takes $10,979.79 a year at 0%.")
        << "318,413.87 by 29, by hand";
    Scenario partial = some_now();
    partial.length_option = by_dollar_amount;
    EXPECT_EQ(least_complete_amount(partial, 8.0, today), 6704.03);
    partial.partial_amount = 400000.0;
    EXPECT_EQ(least_complete_amount(partial, 8.0, today), std::nullopt);

    EXPECT_EQ(least_amount_text(scenario, {}, today), "");
    EXPECT_TRUE(compare_choices({{scenario, 8.0}}, today)
                    .results[0]
                    .reason.ends_with(" years. To end in time it takes $27,812.70 a year at 8%."));
    for (const auto without :
         {+[](Scenario& s) { s.frequency = 0; },
          +[](Scenario& s) { s.life_expectancy_age = s.lookup_age = 0; },
          +[](Scenario& s) { s.first_pay_year = 2026; }, +[](Scenario& s) { s.method = lump_sum; },
          +[](Scenario& s) { s.length_option = by_number_of_payments; },
          +[](Scenario& s) { s.method = partial_lump_sum; }}) {
        Scenario unknown = scenario;
        without(unknown);
        EXPECT_EQ(least_amount_text(unknown, {5.0, 8.0}, today), "");
    }
}

// Any table of compound interest has these: 20 years at 3 % give 1.8061 and, the other way, 0.5537; 30
// years at 4 % 3.2434; 10 years at 2 %, the other way, 0.8203.
TEST(Prices, FollowATableOfCompoundInterest) {
    EXPECT_EQ(dollars_needed(10000.0, 3, 20), 18061.11);
    EXPECT_EQ(dollars_worth(10000.0, 3, 20), 5536.76);
    EXPECT_NEAR(dollars_needed(10000.0, 4, 30), 32434.0, 0.5);
    EXPECT_NEAR(dollars_worth(10000.0, 2, 10), 8203.0, 0.5);

    Scenario scenario = monthly(periodic_payments, by_life_expectancy);
    EXPECT_EQ(price_text(scenario, project(scenario, 5.0, today), 3),
              "At 3% a year, what $1.00 buys today takes $1.81 in 2046; the $3,925.45 a month of 2054 "
              "would buy what $1,715.72 buys today.");
    scenario = some_now();
    EXPECT_EQ(
        price_text(scenario, project(scenario, 5.0, today), 2),
        "At 2% a year, what $1.00 buys today takes $1.22 in 2036; the $12,094.34 a quarter of 2036 "
        "would buy what $9,921.57 buys today.");
    scenario.number_of_payments = 3;
    EXPECT_EQ(price_text(scenario, project(scenario, 5.0, today), 2), "") << "no full year";
    scenario.method = lump_sum;
    EXPECT_EQ(price_text(scenario, project(scenario, 5.0, today), 2), "");
}

TEST(Comparison, ShowsWhatAFallAndNoEarningsLeave) {
    Scenario scenario = monthly(periodic_payments, by_life_expectancy);
    scenario.selected_rates = {5.0, 6.0, 8.0};
    const Comparison comparison = compare(scenario, today, {.falls = true, .earns_nothing = true});
    Texts first_columns;
    for (const ComparedRate& rate : comparison.rates) {
        const RateTexts texts = rate_texts(rate);
        first_columns.push_back(texts[0] + ' ' + texts[2] + ' ' + texts[9]);
    }
    ASSERT_EQ(first_columns.size(), 8U);
    EXPECT_EQ(first_columns[0], "5% $957.67 $711,641.23");
    EXPECT_EQ(first_columns[1], "5% after a fall $766.12 $568,618.48");
    EXPECT_EQ(first_columns[6], "0% $942.05 $318,413.87");
    EXPECT_EQ(first_columns[7], "0% after a fall $753.63 $254,725.84");
    EXPECT_EQ(
        spread_text(scenario, comparison),
        "If it earned 8% every year instead of 5%, you would be paid $543,955.29 more in all, $9.49 "
        "more a month at first; 8% also means more risk. In all, 6% instead of 5% makes $142,879.87 "
        "more, 8% instead of 6% makes $401,075.42 more.");
    scenario.selected_rates = {0.0, 5.0};
    EXPECT_EQ(compare(scenario, today, {.earns_nothing = true}).rates.size(), 2U);
    scenario = monthly(periodic_payments, by_dollar_amount);
    scenario.fixed_amount = 2000.0;
    scenario.selected_rates = {5.0, 8.0};
    EXPECT_EQ(spread_text(scenario, compare(scenario, today, {.falls = true})), "")
        << "8% ends in time only after a fall";
}

}  // namespace
}  // namespace kelvar::test
