#include "engine/chart_rules.h"

#include <gtest/gtest.h>

#include "engine/store.h"
#include "tests/support/sql.h"
#include "tests/support/temporary_program_folder.h"

namespace kelvar::test {

namespace {

using namespace std::chrono_literals;
using Amounts = std::vector<double>;

class YearlyTotalsTest : public ::testing::Test {
protected:
    // Stores payments of these years and amounts in the work table, the first in January, each next one
    // a month later in its year; $900 remains after the first, and $100 less after each.
    void fill(const std::vector<std::pair<int, double>>& payments) {
        PaymentSchedule schedule;
        for (const auto& [year, amount] : payments) {
            PaymentRow row;
            row.payment = amount;
            row.remainbalance = 900.0 - 100.0 * static_cast<double>(schedule.rows.size());
            row.date = std::chrono::year{year} / static_cast<int>(schedule.rows.size() + 1) / 15;
            schedule.rows.push_back(row);
        }
        store(database, schedule, {});
    }

    TemporaryProgramFolder folder;
    Database database{folder.database()};
};

TEST_F(YearlyTotalsTest, OneAmountForEachYearFromFirstToLastRow) {
    fill({{2026, 100.10}, {2026, 0.05}, {2027, 250.0}, {2030, 12.34}});
    const YearlyTotals totals = yearly_totals(database.schedule());
    EXPECT_EQ(totals.first_year, 2026);
    EXPECT_EQ(totals.amounts, (Amounts{100.15, 250.0, 0.0, 0.0, 12.34}));  // 2028 and 2029: none
    EXPECT_EQ(totals.balances, (Amounts{800.0, 700.0, 700.0, 700.0, 600.0}));
    EXPECT_EQ(totals.last_months, (std::vector<int>{2, 3, 3, 3, 4}));
    EXPECT_EQ(get_amount(database.schedule(), 2025), 0.0);
    EXPECT_EQ(refused_chart(database.schedule()), "");
    fill({{2026, 100.0}, {2027, 100.0}});
    EXPECT_EQ(refused_chart(database.schedule()), "");
}

// Twelve payments of 8,333.33 and 8,333.37 are 100,000.00 and not a hair less: the axis shows the step
// above.
TEST_F(YearlyTotalsTest, SumsAreWholeCents) {
    std::vector<std::pair<int, double>> payments(11, {2026, 8333.33});
    payments.emplace_back(2026, 8333.37);
    fill(payments);
    const YearlyTotals totals = yearly_totals(database.schedule());
    EXPECT_EQ(totals.amounts, Amounts{100000.0});
    EXPECT_EQ(y_max(totals.amounts[0]), 110000.0);
    EXPECT_NE(refused_chart(database.schedule()), "") << "of one year";
}

TEST_F(YearlyTotalsTest, NoRowsGiveNoYears) {
    EXPECT_TRUE(yearly_totals(database.schedule()).amounts.empty());
}

TEST_F(YearlyTotalsTest, LongScheduleAddsUpToItsTotal) {
    const PaymentSchedule schedule =
        LevelPaymentSchedule({250000.0, 2020y / 7 / 15, 12, 5.0, 80.0}, 828);
    store(database, schedule, {});
    const YearlyTotals totals = yearly_totals(database.schedule());
    EXPECT_EQ(totals.amounts.size(), 70u);  // July 2020 to June 2089
    double sum = 0.0;
    for (const double amount : totals.amounts) {
        sum += amount;
    }
    EXPECT_NEAR(sum, schedule.total_paid, 0.001);
    EXPECT_EQ(sql_rows(folder.database(),
                       "SELECT printf('%.2f', sum(payment)) FROM schedule WHERE Year = '2055'")[0],
              std::to_string(totals.amounts[35]).substr(0, 8));
    EXPECT_EQ(totals.balances[35], schedule.rows[425].remainbalance);  // December 2055
    EXPECT_EQ(totals.balances.back(), 0.0);
    EXPECT_EQ(totals.last_months.front(), 12);
    EXPECT_EQ(totals.last_months.back(), 6);
}

}  // namespace

}  // namespace kelvar::test
