#include "input/rules/partial_amount.h"

#include <gtest/gtest.h>

#include "tests/support/told.h"

namespace kelvar::test {
namespace {

TEST(PartialAmount, IsAboveZeroAndBelowTheBalance) {
    Scenario scenario;
    scenario.present_value = 250000.0;
    for (const double amount : {-0.01, 0.0, 0.01, 249999.99, 250000.0, 250000.01}) {
        scenario.partial_amount = amount;
        const bool valid = amount == 0.01 || amount == 249999.99;
        EXPECT_EQ(told(partial_msg(scenario)),
                  valid ? accepted : "Invalid partial lump sum amount. [txtpartial]")
            << amount;
    }
}

TEST(PartialAmount, IsReadInCentsWithItsSign) {
    const std::pair<const char*, double> amounts[] = {{"1,234.567", 1234.57},
                                                      {"12500.005", 12500.01},
                                                      {"-500", -500.0},
                                                      {"0.004", 0.0},
                                                      {"9999999999999.99", 9999999999999.99}};
    for (const auto& [text, expected] : amounts) {
        EXPECT_EQ(read_partial_amount(text), expected) << '"' << text << '"';
    }
    for (const char* text :
         {"10000000000000", "-9999999999999.995", "-1e13", "1e400", "50,00", "50%", "abc", ""}) {
        EXPECT_EQ(read_partial_amount(text), std::nullopt) << '"' << text << '"';
    }
}

TEST(PartialPercentage, IsAboveZeroAndBelow100) {
    const std::pair<const char*, double> percentages[] = {
        {"25", 25.0}, {" 12.5 ", 12.5}, {"0.01", 0.01}, {"99.99", 99.99}};
    for (const auto& [text, expected] : percentages) {
        EXPECT_EQ(read_percentage(text), expected) << '"' << text << '"';
    }
    for (const char* text : {"100", "1e400", "0", "-5", "25%", "abc", ""}) {
        EXPECT_EQ(read_percentage(text), std::nullopt) << '"' << text << '"';
    }
}

TEST(PartialPercentage, AndAmountFollowEachOther) {
    EXPECT_EQ(amount_of_percentage(33333.33, 33.0), 11000.0);  // 10,999.9989
    EXPECT_EQ(amount_of_percentage(100.5, 1.0), 1.01);         // 1.005
    EXPECT_EQ(percentage_of_amount(250000.0, 62500.0), "25.00");
    EXPECT_EQ(percentage_of_amount(250000.0, 12500.0), "05.00");
    EXPECT_EQ(percentage_of_amount(80.0, 0.1), "00.13");  // 0.125
    EXPECT_EQ(percentage_of_amount(250000.0, 300000.0), "120.00");
}

}  // namespace
}  // namespace kelvar::test
