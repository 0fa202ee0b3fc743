// Expected figures marked "decimal arithmetic" were computed apart from this program with 60-digit
// decimals, straight from the written rules; the others can be followed with pencil and paper.
#include "engine/schedule.h"
#include "engine/first_payment.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <stdexcept>

#include "core/numbers.h"
#include "engine/accrual.h"

namespace kelvar::test {
namespace {

using namespace std::chrono_literals;

constexpr double same = 1e-9;  // far below any cent, above the noise of doubles

struct ExpectedRow {
    int number;
    double startbalance;
    double payment;
    double remainbalance;
    const char* date;
};

PaymentTerms at_6_percent(double start_value, Date first, int frequency = 12) {
    return {start_value, first, frequency, 6.0, 80.0};
}

// Compares some rows, the last one of the schedule among them.
void expect_figures(const std::string& name, const PaymentSchedule& schedule, double total,
                    const std::vector<ExpectedRow>& expected, bool limit_exceeded = false) {
    ASSERT_EQ(static_cast<int>(schedule.rows.size()), expected.back().number) << name;
    EXPECT_EQ(schedule.number_of_payments, expected.back().number) << name;
    EXPECT_EQ(schedule.limit_exceeded, limit_exceeded) << name;
    EXPECT_NEAR(schedule.total_paid, total, 1e-6) << name;
    for (const ExpectedRow& e : expected) {
        SCOPED_TRACE(name + ", payment " + std::to_string(e.number));
        const PaymentRow& row = schedule.rows[static_cast<std::size_t>(e.number - 1)];
        EXPECT_EQ(row.number, e.number);
        EXPECT_NEAR(row.startbalance, e.startbalance, same);
        EXPECT_NEAR(row.payment, e.payment, same);
        EXPECT_NEAR(row.remainbalance, e.remainbalance, same);
        EXPECT_EQ(date_text(row.date), e.date);
    }
}

TEST(FirstPaymentDate, KeepsTheDayOfToday) {
    struct Case {
        const char* name;
        Date today;
        int month;
        int year;
        const char* expected;
        bool this_month;
    };
    const Case cases[] = {
        {"this month", 2026y / 7 / 31, 7, 2026, "07/31/2026", true},
        {"same month, next year", 2026y / 7 / 31, 7, 2027, "07/31/2027", false},
        {"later this year", 2026y / 7 / 15, 11, 2026, "11/15/2026", false},
        {"day 31 into a month of 30 days", 2026y / 7 / 31, 9, 2026, "09/30/2026", false},
        {"day 31 into February", 2026y / 8 / 31, 2, 2027, "02/28/2027", false},
        {"day 31 into a leap February", 2026y / 8 / 31, 2, 2028, "02/29/2028", false},
        {"leap day into the next year", 2024y / 2 / 29, 2, 2025, "02/28/2025", false},
        {"leap day, years before months", 2024y / 2 / 29, 8, 2025, "08/28/2025", false},
        {"leap day to leap day", 2024y / 2 / 29, 2, 2028, "02/29/2028", false}};
    for (const Case& c : cases) {
        const FirstPayment first = first_payment(c.today, c.month, c.year);
        EXPECT_EQ(date_text(first.date), c.expected) << c.name;
        EXPECT_EQ(first.starts_this_month, c.this_month) << c.name;
    }
}

TEST(StartValue, GrowsDailyLessTheFeeOfEachDay) {
    struct Case {
        const char* name;  // expected: decimal arithmetic, unless said otherwise
        double present_value;
        double rate;
        Date today;
        int month;
        int year;
        double expected;
    };
    const Case cases[] = {
        {"this month: rounded only (by hand)", 250000.005, 6.0, 2026y / 7 / 31, 7, 2026, 250000.01},
        {"28 days", 250000.0, 6.0, 2026y / 1 / 31, 2, 2026, 251147.11},
        {"122 days", 12345.67, 5.0, 2026y / 3 / 10, 7, 2026, 12526.97},
        {"365 days from a leap day", 250000.0, 8.0, 2024y / 2 / 29, 2, 2025, 270739.39},
        {"3653 days, rate with decimals", 100000.0, 7.25, 2026y / 7 / 31, 7, 2036, 205780.64},
        {"no growth: 31 x 80 / 365 = 6.79 off (by hand)", 100000.0, 0.0, 2026y / 7 / 31, 8, 2026,
         99993.21},
        {"the fee takes it below zero", 5.0, 5.0, 2026y / 3 / 10, 3, 2027, -74.74}};
    for (const Case& c : cases) {
        const FirstPayment first = first_payment(c.today, c.month, c.year);
        EXPECT_EQ(value_at_first_payment(c.present_value, c.rate, 80.0, c.today, first), c.expected)
            << c.name;
    }
}

TEST(Growth, PaysTheFeeOnlyOutOfGrowth) {
    struct Case {
        const char* name;
        double balance;
        double rate;
        int days;
        double fee;
        double expected;
    };
    const Case cases[] = {
        {"no rate: 93.42 + 6.575342... (by hand)", 100.0, 0.0, 30, 80.0, 93.42 + 2400.0 / 365.0},
        {"rate too small (decimal arithmetic)", 100.0, 5.0, 30, 80.0, 100.415342465753},
        {"almost covered (decimal arithmetic)", 1000.0, 5.0, 31, 80.0, 1004.254520547945},
        {"just covered (decimal arithmetic)", 1600.0, 5.0, 30, 80.0, 1600.01},
        {"as much growth as fee (decimal arithmetic)", 1597.0, 5.0, 30, 80.0, 1597.0},
        {"covered, leap year (decimal arithmetic)", 100000.0, 6.0, 366, 80.0, 106120.37},
        {"a cent (decimal arithmetic)", 0.01, 6.0, 31, 80.0, 0.014520547945},
        {"no fee, no rate (by hand)", 100.0, 0.0, 30, 0.0, 100.0},
        {"no time (by hand)", 100.0, 6.0, 0, 80.0, 100.0}};
    for (const Case& c : cases) {
        EXPECT_NEAR(Accrual(c.rate, c.fee).before_next_payment(c.balance, c.days).dollars, c.expected,
                    same)
            << c.name;
    }
}

TEST(LevelSchedule, GivesTheFiguresWorkedOutApart) {
    expect_figures("one payment (by hand)",
                   LevelPaymentSchedule(at_6_percent(12345.67, 2026y / 7 / 15), 1), 12345.67,
                   {{1, 12345.67, 12345.67, 0.0, "07/15/2026"}});
    expect_figures("monthly from November, two Januaries (decimal arithmetic)",
                   LevelPaymentSchedule(at_6_percent(10000.0, 2026y / 11 / 15), 15), 10273.524520548,
                   {{1, 10000.0, 666.67, 9333.33, "11/15/2026"},
                    {2, 9372.89, 666.67, 8706.22, "12/15/2026"},
                    {3, 8743.90, 672.61, 8071.29, "01/15/2027"},
                    {14, 1537.06, 672.61, 864.45, "12/15/2027"},
                    {15, 868.8645205479, 868.8645205479, 0.0, "01/15/2028"}});
    expect_figures("annual from a leap day, each payment recalculated (decimal arithmetic)",
                   LevelPaymentSchedule({50000.0, 2024y / 2 / 29, 1, 5.0, 80.0}, 4), 53731.94,
                   {{1, 50000.0, 12500.0, 37500.0, "02/29/2024"},
                    {2, 39342.53, 13114.18, 26228.35, "02/28/2025"},
                    {3, 27493.01, 13746.51, 13746.50, "02/28/2026"},
                    {4, 14371.25, 14371.25, 0.0, "02/28/2027"}});
    expect_figures("twice a year from day 31, once clamped always clamped (decimal arithmetic)",
                   LevelPaymentSchedule({20000.0, 2026y / 8 / 31, 2, 7.0, 80.0}, 5), 21312.93,
                   {{2, 16525.42, 4131.36, 12394.06, "02/28/2027"},
                    {3, 12792.13, 4131.36, 8660.77, "08/28/2027"},
                    {5, 4584.46, 4584.46, 0.0, "08/28/2028"}});
    expect_figures("quarterly, fee never covered, fractions of a cent carried (decimal arithmetic)",
                   LevelPaymentSchedule({1000.01, 2026y / 7 / 31, 4, 8.0, 80.0}, 6), 1052.354383562,
                   {{1, 1000.01, 166.67, 833.34, "07/31/2026"},
                    {2, 850.3143835616, 166.67, 683.64, "10/31/2026"},
                    {3, 697.5643835616, 174.39, 523.17, "01/31/2027"},
                    {5, 366.3252054795, 174.39, 191.94, "07/30/2027"},
                    {6, 195.8443835616, 195.8443835616, 0.0, "10/30/2027"}});
    expect_figures("the longest real schedule (decimal arithmetic)",
                   LevelPaymentSchedule(at_6_percent(250000.0, 2026y / 7 / 15), 828), 3810389.69,
                   {{1, 250000.0, 301.93, 249698.07, "07/15/2026"},
                    {7, 255791.84, 311.18, 255480.66, "01/15/2027"},
                    {414, 1002236.25, 2284.33, 999951.92, "12/15/2060"},
                    {827, 44595.66, 21558.22, 23037.44, "05/15/2095"},
                    {828, 23148.33, 23148.33, 0.0, "06/15/2095"}});
    expect_figures("six cents in twelve payments: after six of a cent nothing is left (by hand)",
                   LevelPaymentSchedule({0.06, 2026y / 1 / 31, 12, 0.0, 0.0}, 12), 0.06,
                   {{1, 0.06, 0.01, 0.05, "01/31/2026"},
                    {6, 0.01, 0.01, 0.0, "06/28/2026"},
                    {7, 0.0, 0.0, 0.0, "07/28/2026"},
                    {12, 0.0, 0.0, 0.0, "12/28/2026"}});
}

TEST(FixedSchedule, GivesTheFiguresWorkedOutApart) {
    const LifeLimit far{75, 99.6};
    const LifeLimit one_year{75, 76.0};
    expect_figures("quarterly from day 31, amount rounded to cents (decimal arithmetic)",
                   FixedAmountSchedule(at_6_percent(10000.0, 2026y / 1 / 31, 4), 1500.005, far),
                   10326.32,
                   {{1, 10000.0, 1500.01, 8499.99, "01/31/2026"},
                    {2, 8605.74, 1500.01, 7105.73, "04/30/2026"},
                    {7, 1326.26, 1326.26, 0.0, "07/30/2027"}});
    expect_figures("monthly over years, never recalculated (decimal arithmetic)",
                   FixedAmountSchedule({100000.0, 2026y / 7 / 15, 12, 5.0, 80.0}, 1200.0, far),
                   121723.64,
                   {{1, 100000.0, 1200.0, 98800.0, "07/15/2026"},
                    {50, 56941.96, 1200.0, 55741.96, "08/15/2030"},
                    {102, 523.6353424658, 523.64, 0.0, "12/15/2034"}});
    expect_figures("larger than the start value (by hand)",
                   FixedAmountSchedule(at_6_percent(999.995, 2026y / 7 / 15), 1000.5, far), 1000.0,
                   {{1, 1000.0, 1000.0, 0.0, "07/15/2026"}});
    expect_figures(
        "fee never covered, a trace of growth (decimal arithmetic)",
        FixedAmountSchedule({100.0, 2026y / 7 / 15, 12, 0.0, 80.0}, 40.0, far), 100.0,
        {{2, 60.0045205479, 40.0, 20.0, "08/15/2026"}, {3, 20.0045205479, 20.0, 0.0, "09/15/2026"}});
    expect_figures(
        "smaller than the growth: stops at the limit (decimal arithmetic)",
        FixedAmountSchedule(at_6_percent(100000.0, 2026y / 7 / 15), 400.0, one_year), 5200.0,
        {{1, 100000.0, 400.0, 99600.0, "07/15/2026"}, {13, 101142.18, 400.0, 100742.18, "07/15/2027"}},
        true);
    expect_figures("ends with the payment after the limit was reached (by hand)",
                   FixedAmountSchedule({1300.0, 2026y / 7 / 15, 12, 0.0, 0.0}, 100.0, one_year), 1300.0,
                   {{13, 100.0, 100.0, 0.0, "07/15/2027"}});
    expect_figures("one dollar more is one payment too many (by hand)",
                   FixedAmountSchedule({1301.0, 2026y / 7 / 15, 12, 0.0, 0.0}, 100.0, one_year), 1300.0,
                   {{13, 101.0, 100.0, 1.0, "07/15/2027"}}, true);
    EXPECT_TRUE(
        FixedAmountSchedule(at_6_percent(1000.0, 2026y / 7 / 15), 100.0, {77, 76.0}).limit_exceeded)
        << "too old before the first payment";
    EXPECT_THROW(FixedAmountSchedule(at_6_percent(1000.0, 2026y / 7 / 15), 0.01, {16, 9999.0}),
                 std::overflow_error);
}

TEST(Schedules, HaveNoRowsWithoutMoneyOrPayments) {
    for (const double start : {0.0, 0.004, -0.004, -74.74}) {
        const PaymentTerms terms = at_6_percent(start, 2026y / 7 / 15);
        for (const PaymentSchedule& schedule :
             {LevelPaymentSchedule(terms, 12), FixedAmountSchedule(terms, 100.0, {70, 99.0})}) {
            EXPECT_TRUE(schedule.rows.empty()) << start;
            EXPECT_EQ(schedule.total_paid, 0.0) << start;
            EXPECT_EQ(schedule.number_of_payments, 0) << start;
            EXPECT_FALSE(schedule.limit_exceeded) << start;
        }
    }
    for (const int payments : {0, -1}) {
        EXPECT_TRUE(LevelPaymentSchedule(at_6_percent(1000.0, 2026y / 7 / 15), payments).rows.empty());
    }
}

TEST(ParseRate, ReadsWhatStandsBeforeThePercentSign) {
    struct Case {
        const char* text;
        double expected;
    };
    for (const Case& c : {Case{" 6%", 6.0}, Case{"7.25%", 7.25}, Case{"  8%  ", 8.0}, Case{" .5%", 0.5},
                          Case{"65", 6.0}, Case{"6", 0.0}, Case{"%", 0.0}, Case{"", 0.0},
                          Case{"   ", 0.0}, Case{"abc%", 0.0}, Case{"6 %", 6.0}}) {
        EXPECT_EQ(parse_rate(c.text), c.expected) << '"' << c.text << '"';
    }
}

class RandomTerms {
public:
    PaymentTerms next() {
        static constexpr int frequencies[] = {1, 2, 4, 12};
        static constexpr double rates[] = {0.0, 3.5, 5.0, 6.0, 8.0};
        const Date date = add_months(2024y / 1 / between(1, 31), between(0, 60));
        return {between(100'000, 25'000'000) / 100.0, date, frequencies[between(0, 3)],
                rates[between(0, 4)], between(0, 3) == 0 ? 0.0 : 80.0};
    }
    int between(int low, int high) { return std::uniform_int_distribution(low, high)(random_); }

private:
    std::mt19937 random_{20260715};
};

bool is_whole_cents(double dollars) {
    return std::abs(dollars * 100.0 - std::round(dollars * 100.0)) < 1e-5;
}

// What every schedule has in common, but for its payments and its end.
void expect_chained(const PaymentSchedule& schedule, const PaymentTerms& terms) {
    const std::vector<PaymentRow>& rows = schedule.rows;
    EXPECT_EQ(rows.front().startbalance, terms.start_value);
    EXPECT_EQ(rows.front().date, terms.first_payment_date);
    double total = 0.0;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const PaymentRow& row = rows[i];
        total += row.payment;
        ASSERT_EQ(row.number, static_cast<int>(i) + 1);
        ASSERT_TRUE(is_whole_cents(row.remainbalance));
        ASSERT_NEAR(row.remainbalance, row.startbalance - row.payment, 0.005 + same);
        if (i + 1 == rows.size()) {
            break;
        }
        const PaymentRow& next = rows[i + 1];
        ASSERT_EQ(next.date, add_months(row.date, 12 / terms.frequency));
        const int days = days_between(row.date, next.date);
        const double grown =
            row.remainbalance * std::pow(1.0 + terms.rate * 0.01 / 365.0, days);  // before the fee
        const double fee = days * terms.fee / 365.0;
        const bool covered = grown - fee >= row.remainbalance - 0.005;
        ASSERT_NEAR(next.startbalance, covered ? grown - fee : grown, 0.005 + same);
        ASSERT_TRUE(is_whole_cents(covered ? next.startbalance : next.startbalance - fee));
        ASSERT_GE(next.startbalance, row.remainbalance - 0.005);
    }
    EXPECT_NEAR(schedule.total_paid, total, 1e-6);
    EXPECT_EQ(schedule.number_of_payments, static_cast<int>(rows.size()));
}

TEST(LevelSchedule, RandomTermsKeepTheRules) {
    RandomTerms random;
    for (int run = 0; run < 300 && !HasFatalFailure(); ++run) {
        SCOPED_TRACE(run);
        const PaymentTerms terms = random.next();
        const int payments = random.between(1, 40 * terms.frequency);
        const PaymentSchedule schedule = LevelPaymentSchedule(terms, payments);
        ASSERT_EQ(schedule.rows.size(), static_cast<std::size_t>(payments));
        expect_chained(schedule, terms);
        for (std::size_t i = 0; i < schedule.rows.size(); ++i) {
            const PaymentRow& row = schedule.rows[i];
            const int left = row.remaining + 1;
            ASSERT_EQ(left, payments - static_cast<int>(i));
            if (left == 1) {
                EXPECT_EQ(row.payment, row.startbalance);
                EXPECT_EQ(row.remainbalance, 0.0);
            } else if (i == 0 || row.date.year() != schedule.rows[i - 1].date.year()) {
                ASSERT_NEAR(row.payment, row.startbalance / left, 0.005 + same);
                ASSERT_TRUE(is_whole_cents(row.payment));
            } else {
                ASSERT_EQ(row.payment, schedule.rows[i - 1].payment);
            }
        }
    }
}

TEST(FixedSchedule, RandomTermsKeepTheRules) {
    RandomTerms random;
    int exceeded = 0;
    for (int run = 0; run < 300 && !HasFatalFailure(); ++run) {
        SCOPED_TRACE(run);
        const PaymentTerms terms = random.next();
        const double amount = round_to_cents(terms.start_value / random.between(1, 120));
        const LifeLimit limit{70, 70 + random.between(1, 300) / 10.0};
        const PaymentSchedule schedule = FixedAmountSchedule(terms, amount, limit);
        expect_chained(schedule, terms);
        const PaymentRow& last = schedule.rows.back();
        const int made_before_last = last.number - 1;
        EXPECT_LE(70 + static_cast<double>(made_before_last) / terms.frequency,
                  limit.life_expectancy_age);
        exceeded += schedule.limit_exceeded ? 1 : 0;
        if (schedule.limit_exceeded) {
            EXPECT_GT(last.remainbalance, 0.0);
            EXPECT_GT(70 + static_cast<double>(last.number) / terms.frequency,
                      limit.life_expectancy_age);
            continue;
        }
        EXPECT_EQ(last.remainbalance, 0.0);
        EXPECT_LE(last.payment, amount);
        for (const PaymentRow& row : schedule.rows) {
            ASSERT_EQ(row.remaining, last.number - row.number);
            ASSERT_TRUE(&row == &last || row.payment == amount);
        }
    }
    EXPECT_GT(exceeded, 30) << "both endings are to be met";
    EXPECT_LT(exceeded, 270) << "both endings are to be met";
}

}  // namespace
}  // namespace kelvar::test
