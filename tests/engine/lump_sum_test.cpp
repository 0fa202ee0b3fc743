#include "engine/first_payment.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "engine/accrual.h"
#include "engine/chart_rules.h"
#include "engine/duration.h"
#include "engine/schedule.h"

namespace kelvar::test {

namespace {

using namespace std::chrono_literals;

TEST(LumpSum, StartValueChargesFiftyAYear) {
    EXPECT_EQ(get_startvalue(250000.0, 5.0, 0), 250000.0);     // paid today
    EXPECT_EQ(get_startvalue(250000.0, 5.0, 182), 256285.85);  // decimal arithmetic
    EXPECT_EQ(get_startvalue(1000.0, 6.0, 3650), 1322.03);     // decimal arithmetic
    EXPECT_EQ(get_startvalue(10.0, 0.0, 365), -40.0);          // by hand
}

// From a lump sum on 15 January over 29 February to 15 March 2020: 60 days; the fee is taken even when
// nothing grows.
TEST(PartialLumpSum, ValueAtTheSecondDate) {
    const int days = days_between(2020y / 1 / 15, 2020y / 3 / 15);
    EXPECT_EQ(Accrual(5.0, 80.0).grown_less_fee(250000.0 - 100000.0, days),
              151224.72);                                                // decimal arithmetic
    EXPECT_EQ(Accrual(0.0, 80.0).grown_less_fee(1000.0, days), 986.85);  // decimal arithmetic
    EXPECT_EQ(Accrual(5.0, 80.0).grown_less_fee(256270.90 - 40000.0, 0), 216270.90);  // same day
}

TEST(Axis, RoundsUpToTheNextTwoDigits) {
    const std::pair<double, double> cases[] = {
        {123456.78, 130000}, {9999.99, 10000}, {120000, 130000}, {5432.10, 5500}, {5.5, 6},
        {100000, 110000},    {0.0, 1},         {-5.0, 1},        {9.99e12, 1e13}};
    for (const auto& [largest, bound] : cases) {
        EXPECT_EQ(y_max(largest), bound) << largest;
    }
    EXPECT_EQ(y_max(std::nan("")), 1.0);
    for (const double huge : {HUGE_VAL, std::numeric_limits<double>::max()}) {
        EXPECT_GE(y_max(huge), 1e300);
        EXPECT_TRUE(std::isfinite(y_max(huge)));
    }
}

// The four figures that the note quotes, no return at all, and withdrawals that the growth covers.
TEST(Duration, WholeYearsOrNever) {
    EXPECT_EQ(years_payments_last(15.0, 5.0), 8);
    EXPECT_EQ(years_payments_last(10.0, 5.0), 14);
    EXPECT_EQ(years_payments_last(10.0, 6.0), 15);
    EXPECT_EQ(years_payments_last(10.0, 8.0), 20);
    EXPECT_EQ(years_payments_last(10.0, 0.0), 10);
    EXPECT_EQ(years_payments_last(6.0, 6.0), std::nullopt);
    EXPECT_EQ(years_payments_last(5.0, 6.0), std::nullopt);
}

}  // namespace

}  // namespace kelvar::test
