// Whole scenarios in, work tables out. Expected figures were computed apart from this program with
// 60-digit decimals, straight from the written rules.
#include "engine/projection.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <random>

#include "core/numbers.h"
#include "engine/comparison.h"
#include "engine/explanation.h"
#include "engine/headline.h"
#include "engine/least_amount.h"
#include "engine/result_texts.h"
#include "engine/store.h"
#include "engine/years.h"
#include "tests/support/sql.h"
#include "tests/support/temporary_program_folder.h"

namespace kelvar::test {
namespace {

using namespace std::chrono_literals;
using Rows = std::vector<std::string>;

// 250,000.00 of somebody of 70, from July 2020, monthly over 29.1 years; today is 15 January 2020.
Scenario monthly_over_life(std::int16_t method) {
    Scenario scenario;
    scenario.method = method;
    scenario.present_value = 250000.0;
    scenario.first_pay_month = 7;
    scenario.first_pay_year = 2020;
    scenario.scenario_month = 10;
    scenario.scenario_year = 2020;
    scenario.partial_amount = method == partial_lump_sum ? 40000.0 : 0.0;
    scenario.frequency = 12;
    scenario.length_option = by_life_expectancy;
    scenario.number_of_payments = 349;
    scenario.fee_amount = 80;
    scenario.lookup_age = 70;
    scenario.life_expectancy_age = 99.1;
    return scenario;
}

Scenario dollars_a_month(double amount) {
    Scenario scenario = monthly_over_life(periodic_payments);
    scenario.length_option = by_dollar_amount;
    scenario.fixed_amount = amount;
    return scenario;
}

Scenario not_worth_the_fee() {
    Scenario scenario = monthly_over_life(periodic_payments);
    scenario.present_value = 100.0;
    scenario.first_pay_year = 2025;
    return scenario;
}

// Paid after 366 days without growth, at 80 dollars a year or 50 for a lump sum.
Scenario just_the_fee(std::int16_t method, double dollars) {
    Scenario scenario = monthly_over_life(method);
    scenario.present_value = dollars;
    scenario.first_pay_month = 1;
    scenario.first_pay_year = 2021;
    return scenario;
}

Scenario without_length() {
    Scenario scenario = monthly_over_life(periodic_payments);
    scenario.length_option = no_length;
    return scenario;
}

TEST(Projection, FillsTheWorkTables) {
    struct Case {
        const char* name;
        Scenario scenario;
        double rate;
        Outcome outcome;
        std::vector<std::pair<std::size_t, std::string>> rows;  // the last one among them
        std::string heading;  // empty: the row of the last result stays
    };
    const std::string fields =
        "curvalue, startvalue, frstdate, payments, fixamount, totalvalue, rate, fee";
    const Case cases[] = {
        {"periodic",
         monthly_over_life(periodic_payments),
         5.0,
         Outcome::complete,
         {{1, "1 348 256270.9 734.3 255536.6 July 2020"},
          {7, "7 342 258300.14 753.06 257547.08 January 2021"},
          {349, "349 0 3618.47 3618.47 0.0 July 2049"}},
         "Periodic Payments - Monthly  250000.0 256270.9 July, 2020 349  $578,796.05  5% $80 3"},
        {"partial lump sum",
         monthly_over_life(partial_lump_sum),
         5.0,
         Outcome::complete,
         {{1, "1 348 218993.4 627.49 218365.91 October 2020"},
          {349, "349 0 3263.19 3263.19 0.0 October 2049"}},
         "Partial Lump Sum Payments Lump Sum  + Remaining Paid Monthly 250000.0 256270.9 July, 2020 "
         "349  $534,050.38  5% $80 3 October, 2020 218993.4 40000.0"},
        {"lump sum",
         monthly_over_life(lump_sum),
         5.0,
         Outcome::complete,
         {},
         "  250000.0 256285.85 July, 2020 349  $256,285.85 5% $80"},
        {"dollar amount",
         dollars_a_month(1400.0),
         5.0,
         Outcome::complete,
         {{341, "341 0 477.564520547945 477.56 0.0 November 2048"}},
         "Periodic Payments - Monthly  250000.0 256270.9 July, 2020 341 1400.0 $476,477.56  5% $80 2"},
        {"dollar amount beyond life",
         dollars_a_month(1400.0),
         7.0,
         Outcome::limit_exceeded,
         {{350, "350 0 373248.54 1400.0 371848.54 August 2049"}},
         ""},
        {"nothing left", not_worth_the_fee(), 5.0, Outcome::nothing_left, {}, ""},
        {"no cent left", just_the_fee(periodic_payments, 80.22), 0.0, Outcome::nothing_left, {}, ""},
        {"no cent of a lump sum", just_the_fee(lump_sum, 50.14), 0.0, Outcome::nothing_left, {}, ""},
        {"no length chosen", without_length(), 5.0, Outcome::no_payments, {}, ""}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const TemporaryProgramFolder folder;
        Database database(folder.database());
        const Projection projection = project(c.scenario, c.rate, 2020y / 1 / 15);
        EXPECT_EQ(projection.outcome, c.outcome);
        store(database, projection.schedule, heading_of(c.scenario, projection));
        const Rows rows = sql_rows(folder.database(), "SELECT * FROM schedule ORDER BY rowid");
        ASSERT_EQ(rows.size(), c.rows.empty() ? 0 : c.rows.back().first);
        for (const auto& [number, row] : c.rows) {
            EXPECT_EQ(rows[number - 1], row);
        }
        std::string heading;
        for (const std::string& row : sql_rows(
                 folder.database(), "SELECT dtitle, dsubtitle, " + fields +
                                        ", paylength, scnddate, scndvalue, partial FROM distrib")) {
            heading += row;
        }
        heading.erase(heading.find_last_not_of(' ') + 1);
        EXPECT_EQ(heading, c.heading);
    }
}

TEST(Projection, IsTakenOverByItsScenario) {
    Scenario scenario = dollars_a_month(1400.0);
    take_over(scenario, project(scenario, 5.0, 2020y / 1 / 15));
    const double total = scenario.total_paid;
    EXPECT_EQ(scenario.number_of_payments, 341);
    EXPECT_NEAR(total, 476477.56, 1e-6);
    take_over(scenario, project(scenario, 7.0, 2020y / 1 / 15));
    EXPECT_EQ(scenario.start_value, 258839.35);
    EXPECT_EQ(scenario.number_of_payments, 350) << "also beyond the limit";
    EXPECT_EQ(scenario.total_paid, total) << "of the last complete result";

    scenario = monthly_over_life(partial_lump_sum);
    take_over(scenario, project(scenario, 5.0, 2020y / 1 / 15));
    EXPECT_EQ(scenario.second_value, 218993.40);
    EXPECT_NEAR(scenario.total_paid, 534050.38, 1e-6);
    scenario = monthly_over_life(lump_sum);
    take_over(scenario, project(scenario, 8.0, 2020y / 1 / 15));
    EXPECT_EQ(scenario.lump_start_value, 260148.11);
}

class RandomScenarios {
public:
    Scenario next() {
        static constexpr std::int16_t frequencies[] = {1, 2, 4, 12};
        Scenario s = monthly_over_life(between(lump_sum, partial_lump_sum));
        s.frequency = frequencies[between(0, 3)];
        s.length_option = between(by_number_of_payments, by_life_expectancy);
        s.present_value = between(0, 1) == 0 ? between(1, 30'000) / 100.0 : between(1, 32'000) * 31.37;
        s.first_pay_month = between(1, 12);
        s.first_pay_year = between(0, 2) == 0 ? 2020 : between(2021, 2030);
        s.scenario_month = between(1, 12);
        s.scenario_year = static_cast<std::int16_t>(s.first_pay_year + 1);
        s.partial_amount = round_to_cents(s.present_value * between(0, 90) / 100.0);
        s.number_of_payments = between(0, 9) == 0 ? std::int16_t{0} : between(1, 40 * s.frequency);
        s.fixed_amount = round_to_cents(s.present_value / between(1, 200));
        s.fee_amount = between(0, 3) == 0 ? std::int16_t{0} : between(1, 200);
        return s;
    }
    double rate() { return between(-8, 40) / 4.0; }
    std::int16_t between(int low, int high) {
        return static_cast<std::int16_t>(std::uniform_int_distribution(low, high)(random_));
    }

private:
    std::mt19937 random_{20200115};
};

long long cents(double dollars) {
    const double count = std::round(dollars * 100.0);
    EXPECT_NEAR(dollars * 100.0, count, 1e-5 + std::abs(dollars) * 1e-12) << "whole cents";
    return static_cast<long long>(count);
}

// "$100.00 today + $5.00 earned - $1.00 fees = $104.00 left." in cents: what stands left and right of
// the equals sign.
struct Sum {
    long long left = 0;
    long long right = 0;
};
Sum read_sum(const std::string& text) {
    Sum sum;
    long long* side = &sum.left;
    for (std::size_t at = 0; at < text.size() && text[at] != '.'; ++at) {
        if (text[at] == '=') {
            side = &sum.right;
        } else if (text[at] == '$') {
            const std::size_t end = text.find('.', at) + 3;
            const bool minus = at >= 2 && (text[at - 1] == '-' || text[at - 2] == '-');
            *side += (minus ? -1 : 1) * cents(read_number(text.substr(at, end - at)));
            at = end - 1;
        }
    }
    return sum;
}

// "The $100.00 left grows by $5.00 in 30 days, less $1.00 fee: $104.00." as such a sum.
Sum read_growth(std::string text) {
    for (const auto& [words, sign] : {std::pair(" left grows by ", " + "),
                                      {" left loses ", " - "},
                                      {", less ", " - "},
                                      {": ", " = "}}) {
        if (const std::size_t at = text.find(words); at != std::string::npos) {
            text.replace(at, std::strlen(words), sign);
        }
    }
    return read_sum(text);
}

void expect_explained(const Scenario& scenario, const Projection& p, std::size_t index) {
    const PaymentRow& row = p.schedule.rows[index];
    const std::string text = explanation(scenario, p, index);
    SCOPED_TRACE(text);
    const auto says = [&](const std::string& words) { return text.find(words) != std::string::npos; };
    EXPECT_TRUE(says(money_text(row.payment)) || row.payment == 0.0);
    const bool last = row.remaining == 0;
    const bool fixed = scenario.length_option == by_dollar_amount;
    EXPECT_EQ(says(": nothing is left to be paid."), round_to_cents(row.startbalance) == 0.0);
    EXPECT_EQ(says(", all that is left"), last && round_to_cents(row.startbalance) != 0.0);
    const bool cut = scenario.fixed_amount >= scenario.present_value;
    EXPECT_EQ(says(", the amount you chose."), fixed && !last && !cut);
    EXPECT_EQ(says(", the balance you entered."), fixed && !last && cut);
    EXPECT_EQ(says("less than the other payments"),
              last && fixed && row.startbalance >= 0.005 &&
                  row.payment < round_to_cents(scenario.fixed_amount));
    if (const std::size_t as_in = text.find(" as in "); as_in != std::string::npos) {
        EXPECT_TRUE(says(" as in January, ") || year_of(row.date) == year_of(p.schedule.rows[0].date) ||
                    scenario.frequency < 12);
        const bool last_year = year_of(row.date) == year_of(p.schedule.rows.back().date);
        EXPECT_TRUE(says(
            ", " + std::to_string(year_of(row.date)) +
            (last_year ? "; only the last payment differs." : "; it changes only with the year.")));
        EXPECT_FALSE(says(" as in " + month_year_text(row.date)));
    }
    if (const std::size_t division = text.find(" divided by "); division != std::string::npos) {
        const double left = read_number(text.substr(division + 12));
        EXPECT_EQ(left, row.remaining + 1);
        EXPECT_EQ(says(fmt::format("({} to come and this one)", row.remaining)), index > 0);
        EXPECT_EQ(row.payment, round_to_cents(row.startbalance / left));
    }
    const std::size_t then = text.find(" The $");
    const bool goes_on = index + 1 < p.schedule.rows.size() && row.remainbalance > 0.0;
    ASSERT_EQ(then != std::string::npos, goes_on);
    if (goes_on) {
        const Sum sum = read_growth(text.substr(then));
        EXPECT_EQ(sum.left, sum.right);
        EXPECT_EQ(sum.right, cents(round_to_cents(p.schedule.rows[index + 1].startbalance)));
        EXPECT_FALSE(says("No fee this time") && says(" fee: "));
        EXPECT_EQ(says("No fee this time") || says(" fee: "), scenario.fee_amount > 0);
    }
}

// Each year begins with what the one before left, and with what lies before they make the ledger.
void expect_years(const Scenario& scenario, const Projection& p) {
    const Ledger& l = p.ledger;
    const bool partial = scenario.method == partial_lump_sum;
    long long fees = partial ? 0 : cents(l.fees_before);
    long long earnings = partial ? 0 : cents(l.earnings_before);
    double begins = p.schedule.rows.empty() ? 0.0
                    : partial               ? l.opening
                                            : round_to_cents(p.schedule.rows[0].startbalance);
    std::size_t payments = 0;
    const std::vector<YearRow> years = years_of(p, scenario.birth_date, scenario.fee_amount);
    for (const YearRow& y : years) {
        if (y.label == rounding_label) {
            EXPECT_EQ(cents(y.earnings), -cents(l.rounding));
            earnings += cents(y.earnings);
            continue;
        }
        EXPECT_EQ(y.label == lump_sum_label, partial && payments == 0 && y.payments == 0);
        EXPECT_EQ(y.beginning, begins) << y.year;
        EXPECT_EQ(cents(y.beginning) + cents(y.earnings) - cents(y.fees) - cents(y.paid),
                  cents(y.ending));
        EXPECT_EQ(y.year,
                  year_of(y.label.empty() ? p.schedule.rows[payments].date : p.dates.first.date));
        fees += cents(y.fees);
        earnings += cents(y.earnings);
        payments += static_cast<std::size_t>(y.payments);
        begins = y.ending;
    }
    EXPECT_EQ(payments, p.schedule.rows.size());
    if (payments > 0) {
        EXPECT_EQ(fees, cents(l.fees));
        EXPECT_EQ(cents(l.opening) + cents(l.earnings_before) - cents(l.fees_before) -
                      (scenario.method == partial_lump_sum ? cents(p.lump_sum) : 0),
                  cents(p.schedule.rows[0].startbalance));
        if (p.outcome == Outcome::complete) {
            EXPECT_EQ(earnings, cents(l.earnings));
            EXPECT_EQ(cents(total_of(years).paid), cents(round_to_cents(p.total_paid)));
        }
    }
}

TEST(Ledger, AddsUpToTheCentAsExplanationsAndYearsDo) {
    RandomScenarios random;
    int met[4] = {};
    for (int run = 0; run < 2000 && !HasFailure(); ++run) {
        SCOPED_TRACE(run);
        const Scenario scenario = random.next();
        const Projection p = project(scenario, random.rate(), 2020y / 1 / 31);
        ++met[static_cast<int>(p.outcome)];
        const Ledger& l = p.ledger;
        EXPECT_EQ(cents(l.opening) + cents(l.earnings) - cents(l.fees) - cents(l.payments) +
                      cents(l.rounding),
                  cents(l.closing));
        EXPECT_EQ(cents(l.opening), cents(scenario.present_value));
        for (const double entry : {l.opening, l.earnings, l.fees, l.payments, l.earnings_before,
                                   l.fees_before, l.rounding}) {
            EXPECT_EQ(entry, round_to_cents(entry));
        }
        const bool complete = p.outcome == Outcome::complete;
        EXPECT_TRUE(!complete || (l.closing == 0.0 && l.payments == round_to_cents(p.total_paid)));
        const long long payments = static_cast<long long>(p.schedule.rows.size()) +
                                   (scenario.method == periodic_payments ? 0 : 1);
        EXPECT_LE(std::abs(cents(l.rounding)), complete ? payments : payments + 1);
        EXPECT_LE(l.periods_without_fee, payments);
        EXPECT_TRUE(scenario.fee_amount > 0 || scenario.method == lump_sum || l.fees == 0.0);
        const std::string text = ledger_text(p);
        const Sum sum = read_sum(text);
        EXPECT_EQ(sum.left, sum.right) << text;
        EXPECT_EQ(text.find(" lost, ") != std::string::npos,
                  l.earnings_before < 0.0 && scenario.method != partial_lump_sum)
            << text;
        for (std::size_t index = 0; index < p.schedule.rows.size(); ++index) {
            expect_explained(scenario, p, index);
        }
        expect_years(scenario, p);
    }
    EXPECT_GT(*std::min_element(std::begin(met), std::end(met)), 30) << "all four outcomes are met";

    const Ledger ledger = project(monthly_over_life(periodic_payments), 5.0, 2020y / 1 / 15).ledger;
    EXPECT_EQ(ledger.fees_before, 39.89) << "182 days at $80 a year";
    Scenario six_cents = monthly_over_life(periodic_payments);
    six_cents.present_value = 0.06;
    six_cents.number_of_payments = 12;
    six_cents.first_pay_month = 1;
    six_cents.fee_amount = 0;
    const Projection p = project(six_cents, 0.0, 2020y / 1 / 15);
    for (std::size_t index = 0; index < p.schedule.rows.size(); ++index) {
        expect_explained(six_cents, p, index);
    }
    EXPECT_EQ(explanation(six_cents, p, 6), "Payment 7, July, 2020: nothing is left to be paid.");
    six_cents.number_of_payments = 2;
    six_cents.fee_amount = 80;
    const PaymentSchedule two = project(six_cents, -2.0, 2020y / 1 / 15).schedule;
    EXPECT_NE(two.rows[0].payment, two.rows[1].payment) << "by a fraction of a cent";
    EXPECT_FALSE(amount_changes(two, 1));
}

Scenario with(Scenario scenario, std::int16_t frequency, std::int16_t length_option, int number) {
    scenario.birth_date = 1950y / 6 / 15;
    scenario.frequency = frequency;
    scenario.length_option = length_option;
    scenario.number_of_payments = static_cast<std::int16_t>(number);
    scenario.fixed_amount = 22000.0 / frequency;
    return scenario;
}

TEST(LeastAmount, CompletesAndACentLessDoesNot) {
    const Date today = 2020y / 1 / 15;
    RandomScenarios random;
    for (int i = 0; i < 300; ++i) {
        Scenario scenario = random.next();
        scenario.length_option = by_dollar_amount;
        const double rate = random.rate();
        const auto least = least_complete_amount(scenario, rate, today);
        scenario.fixed_amount = least.value_or(largest_amount);
        EXPECT_EQ(
            project(scenario, rate, today).outcome == Outcome::complete && scenario.method != lump_sum,
            least.has_value());
        scenario.fixed_amount = round_to_cents(scenario.fixed_amount - 0.01);
        if (least > 0.01) {
            EXPECT_EQ(project(scenario, rate, today).outcome, Outcome::limit_exceeded);
        }
    }
}

TEST(Headline, SaysTheResultInOneSentence) {
    const Scenario periodic = monthly_over_life(periodic_payments);
    const Scenario partial = monthly_over_life(partial_lump_sum);
    Scenario joint = with(partial, 12, by_life_expectancy, 349);
    joint.joint_life = true;
    Scenario at_69 = with(partial, 12, by_life_expectancy, 349);
    at_69.lookup_age = 69;
    Scenario four_cents = with(periodic, 12, by_number_of_payments, 12);
    four_cents.present_value = 0.04;
    four_cents.first_pay_month = 1;
    const std::pair<Scenario, std::string> cases[] = {
        {with(periodic, 12, by_number_of_payments, 349),
         "$734.30 a month from July, 2020, $753.06 from January, 2021, then a new amount each January; "
         "last payment July, 2049, age 99."},
        {with(periodic, 1, by_life_expectancy, 29),
         ", over your minimum distribution years: $8,836.93 a year from July, 2020, $9,287.12 from "
         "July, "
         "2021, then a new amount each July; last payment July, 2048, age 98."},
        {with(periodic, 2, by_number_of_payments, 3),
         "$85,423.63 a half-year from July, 2020, $87,583.83 from January, 2021; last payment July, "
         "2021, "
         "age 71."},
        {with(periodic, 12, by_number_of_payments, 7),
         "$36,610.13 a month from July, 2020; last payment of $39,856.47 in January, 2021, age 70."},
        {with(periodic, 2, by_number_of_payments, 2),
         "$128,135.45 in July, 2020 and $131,365.66 in January, 2021, age 70."},
        {with(periodic, 4, by_number_of_payments, 2),
         "$128,135.45 in July, 2020 and $129,740.25 in October, 2020, age 70."},
        {with(periodic, 12, by_number_of_payments, 1), "$256,270.90 once in July, 2020, age 70."},
        {with(periodic, 12, by_dollar_amount, 0),
         "$1,833.33 a month from July, 2020, for 17 years and 4 months (208 payments); last payment of "
         "$1,461.09 in October, 2037, age 87."},
        {with(periodic, 4, by_dollar_amount, 0),
         "$5,500.00 a quarter from July, 2020, for 17 years and 3 months (69 payments); last payment "
         "of $4,469.03 in July, 2037, age 87."},
        {joint,
         "$40,000.00 in July, 2020, then over your joint life expectancy: $627.49 a month from "
         "October, "
         "2020, $635.41 from January, 2021, then a new amount each January; last payment October, "
         "2049, "
         "age 99."},
        {at_69,
         "$40,000.00 in July, 2020, then over your single life expectancy: $627.49 a month from "
         "October, "
         "2020, $635.41 from January, 2021, then a new amount each January; last payment October, "
         "2049, "
         "age 99."},
        {with(partial, 12, by_number_of_payments, 2),
         "$40,000.00 in July, 2020, then $109,496.70 in October, 2020 and $109,955.85 in November, "
         "2020, "
         "age 70."},
        {with(monthly_over_life(lump_sum), 0, no_length, 0),
         "$256,285.85 at once in July, 2020, age 70."},
        {four_cents,
         "$0.04 in all, too little for a cent a month; last payment December, 2020, age 70."},
        {without_length(), ""}};
    for (const auto& [scenario, sentence] : cases) {
        const std::string estimate = sentence.empty()            ? ""
                                     : sentence.starts_with(',') ? "Estimate at 5%"
                                                                 : "Estimate at 5%: ";
        EXPECT_EQ(headline(scenario, project(scenario, 5.0, 2020y / 1 / 15)), estimate + sentence);
    }
}

TEST(Comparison, ShowsWhatComesOfEachRate) {
    Scenario scenario = with(monthly_over_life(periodic_payments), 12, by_dollar_amount, 0);
    scenario.fixed_amount = 1400.0;
    scenario.selected_rates = {4.0, 5.0, 7.0};
    const Date today = 2020y / 1 / 15;
    Comparison comparison = compare(scenario, today);
    ASSERT_EQ(comparison.rates.size(), 3U);
    EXPECT_EQ(comparison.rates[2].outcome, Outcome::limit_exceeded);
    EXPECT_EQ(comparison.first_year, 2020);
    const ComparedRate expected[] = {{.first_value = 254996.19,
                                      .payments = 278,
                                      .last_payment = 2043y / 8 / 15,
                                      .last_age = 93,
                                      .earnings = 140347.35,
                                      .fees = 1880.99,
                                      .total = 388466.43},
                                     {.first_value = 256270.90,
                                      .payments = 341,
                                      .last_payment = 2048y / 11 / 15,
                                      .last_age = 98,
                                      .earnings = 228778.98,
                                      .fees = 2301.59,
                                      .total = 476477.56}};
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        const ComparedRate& rate = comparison.rates[i];
        EXPECT_EQ(rate.outcome, Outcome::complete);
        EXPECT_EQ(rate.first_value, expected[i].first_value);
        EXPECT_EQ(rate.first_amount, 1400.0);
        EXPECT_EQ(rate.full_year_amount, 1400.0);
        EXPECT_EQ(rate.payments, expected[i].payments);
        EXPECT_EQ(rate.last_payment, expected[i].last_payment);
        EXPECT_EQ(rate.last_age, expected[i].last_age);
        EXPECT_EQ(rate.fees, expected[i].fees);
        EXPECT_EQ(rate.earnings, expected[i].earnings);
        EXPECT_NEAR(rate.total, expected[i].total, 1e-6);
        EXPECT_EQ(rate.balances.back(), 0.0);
    }
    EXPECT_EQ(spread_text(scenario, comparison),
              "If it earned 5% every year instead of 4%, you would be paid $88,011.13 more in all, and "
              "payments would end 5 years and 3 months later; 5% also means more risk.");
    Comparison once = comparison;
    once.rates[0].payments = once.rates[1].payments = 1;
    once.rates[1].first_amount += 5.0;
    EXPECT_EQ(spread_text(scenario, once).find("at first"), std::string::npos);
    comparison.rates.resize(1);
    EXPECT_EQ(spread_text(scenario, comparison), "");
    comparison.rates.push_back(comparison.rates[0]);
    EXPECT_EQ(spread_text(scenario, comparison), "") << "the same rate twice";
    scenario.frequency = 4;
    scenario.fixed_amount = 4200.0;
    EXPECT_EQ(spread_text(scenario, compare(scenario, today)),
              "If it earned 5% every year instead of 4%, you would be paid $85,799.19 more in all, and "
              "payments would end 5 years and 3 months later; 5% also means more risk.");

    scenario = with(monthly_over_life(partial_lump_sum), 12, by_life_expectancy, 349);
    scenario.scenario_year = 2021;
    scenario.selected_rates = {5.0};
    EXPECT_EQ(compare(scenario, today).first_year, 2021);
    scenario.method = periodic_payments;
    EXPECT_EQ(compare(scenario, today).rates[0].full_year_amount, 3090.02) << "of 2048";
    const std::vector<YearRow> years =
        years_of(project(scenario, 5.0, today), scenario.birth_date, scenario.fee_amount);
    EXPECT_EQ(years.front().age * 100 + years.at(29).age, 7099);

    scenario.selected_rates = {4.0, 5.0, 7.0};
    scenario.method = lump_sum;
    const std::vector<LumpSumValue> values = lump_sum_values(scenario, today);
    EXPECT_EQ(values[1].value, 256285.85);
    EXPECT_EQ(values[1].difference, 6285.85);
}

}  // namespace
}  // namespace kelvar::test
