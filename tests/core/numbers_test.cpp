#include "core/numbers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace kelvar::test {
namespace {

TEST(Numbers, RoundsToCentsAsAPersonWould) {
    struct Case {
        const char* name;
        double dollars;
        double expected;
    };
    const Case cases[] = {{"tie just below in binary", 1.005, 1.01},
                          {"tie of an account balance", 12500.005, 12500.01},
                          {"tie of a debt", -0.005, -0.01},
                          {"below half a cent", 0.00499, 0.0},
                          {"debt below half a cent", -0.00499, 0.0},
                          {"15 digits just below the tie", 1.00499999999999, 1.00},
                          {"the 16th digit does not count", 1.004999999999999, 1.01},
                          {"product with binary noise", 1.15 * 100.0 / 1000.0, 0.12},
                          {"carries through all digits", 9999999999.995, 10000000000.0},
                          {"largest amount in cents", 9999999999999.99, 9999999999999.99},
                          {"16 digits, rounded at the 15th", 1234567890123.456, 1234567890123.46},
                          {"whole dollars only", 123456789012345.0, 123456789012345.0},
                          {"near the largest double", 1e307, 1e307}};
    for (const Case& c : cases) {
        EXPECT_EQ(round_to_cents(c.dollars), c.expected) << c.name;
    }
}

TEST(Numbers, RoundingEqualsReadingBackWhatIsFormatted) {
    std::mt19937_64 random(20260715);
    std::uniform_real_distribution<double> magnitude(-4.0, 13.0);
    std::uniform_int_distribution<std::int64_t> cents(0, 99'999'999'999);
    for (int i = 0; i < 4000; ++i) {
        const double any = std::pow(10.0, magnitude(random)) * (i % 2 == 0 ? 1.0 : -1.0);
        const double tie = (static_cast<double>(cents(random)) + 0.5) / 100.0;
        const double infinity = std::numeric_limits<double>::infinity();
        for (const double x :
             {any, tie, -tie, std::nextafter(tie, infinity), std::nextafter(tie, 0.0),
              tie * (1.0 + 4e-15), tie * (1.0 - 4e-15), tie * (1.0 + 2e-14), tie * (1.0 - 2e-14)}) {
            ASSERT_EQ(round_to_cents(x), read_number(format_number(x, "0.00")))
                << "x = " << std::hexfloat << x;
        }
    }
}

TEST(Numbers, ReadsTheNumberAtTheStartOfAText) {
    struct Case {
        const char* text;
        double value;
    };
    const Case whole[] = {{"-0", 0.0},
                          {"007", 7.0},
                          {" \t12 \n", 12.0},
                          {"+5", 5.0},
                          {"-5", -5.0},
                          {"$5", 5.0},
                          {"-$5.25", -5.25},
                          {"5.", 5.0},
                          {".5", 0.5},
                          {"-.5", -0.5},
                          {"250,000.00", 250000.0},
                          {"1e3", 1000.0},
                          {"1,234E+2", 123400.0},
                          {"25e-1", 2.5},
                          {"1e-400", 0.0}};
    for (const Case& c : whole) {
        EXPECT_EQ(read_number(c.text), c.value) << '"' << c.text << '"';
        EXPECT_TRUE(is_numeric(c.text)) << '"' << c.text << '"';
    }
    const Case leading[] = {
        {"5-", 5.0},          {"1.2.3", 1.2},         {"12 34", 12.0}, {"6%", 6.0},
        {"1e", 1.0},          {"1e+", 1.0},           {"1,5", 1.0},    {"1,2345", 1.0},
        {"1234,567", 1234.0}, {"12,345,67", 12345.0}, {"1,,234", 1.0}, {"1,", 1.0},
        {"0.123,456", 0.123}, {"0x1F", 0.0}};
    for (const Case& c : leading) {
        EXPECT_EQ(read_number(c.text), c.value) << '"' << c.text << '"';
        EXPECT_FALSE(is_numeric(c.text)) << '"' << c.text << '"';
    }
    for (const char* text :
         {"",      "   ", "abc", "-",      "+",          ".",     "-.",     "$",
          "0,500", "--5", "+-5", "- 5",    "$-5",        "$$5",   ",500",   ".e5",
          "e5",    "nan", "inf", "-infin", "\xC2\xA0 5", "1e400", "-1e400", "1e999999"}) {
        EXPECT_EQ(read_number(text), 0.0) << '"' << text << '"';
        EXPECT_FALSE(is_numeric(text)) << '"' << text << '"';
    }
    EXPECT_EQ(read_number("$1,234,567.89"), 1234567.89);
    EXPECT_EQ(read_number("123456789012345678901234567890"), 123456789012345678901234567890.0);
    EXPECT_FALSE(is_numeric("1e99999999999999999999"));
    EXPECT_TRUE(std::ranges::all_of(std::string{"0189+-$,.eE "}, can_be_in_number));
    EXPECT_TRUE(std::ranges::none_of(std::string{"xX%/()'_n\xA0"}, can_be_in_number));
}

TEST(Numbers, WritesThePatternsOfTheScreens) {
    struct Pattern {
        const char* pattern;
        std::vector<std::pair<double, const char*>> cases;
    };
    const Pattern patterns[] = {
        {"###,###,##0.00",
         {{0.5, "0.50"}, {999.995, "1,000.00"}, {-250000.0, "-250,000.00"}, {-0.001, "0.00"}}},
        {"#,##0.00", {{0.0, "0.00"}, {1234567890123.45, "1,234,567,890,123.45"}}},
        {"$###,###,##0.00", {{12500.005, "$12,500.01"}, {-74.74, "-$74.74"}}},
        {"$###,##0.00", {{1234567.891, "$1,234,567.89"}}},
        {"$###,###,##0", {{999999.5, "$1,000,000"}, {999.4, "$999"}}},
        {"$##0", {{80.0, "$80"}, {0.0, "$0"}, {1234.0, "$1234"}, {-80.4, "-$80"}}},
        {"##0", {{0.5, "1"}, {0.49, "0"}, {240.0, "240"}}},
        {"##0.00", {{1.005, "1.01"}, {1234.5, "1234.50"}}},
        {"0.00", {{0.004, "0.00"}, {-0.005, "-0.01"}, {1e20, "100000000000000000000.00"}}},
        {"00.00", {{5.0, "05.00"}, {0.125, "00.13"}, {99.995, "100.00"}}}};
    for (const auto& [pattern, cases] : patterns) {
        for (const auto& [value, expected] : cases) {
            EXPECT_EQ(format_number(value, pattern), expected) << value << ' ' << pattern;
        }
    }
}

TEST(Numbers, WritesANumberAsAPersonWould) {
    for (const auto& [value, expected] : {std::pair{19.6 + 69, "88.6"},
                                          {0.1 + 0.2, "0.3"},
                                          {6.0, "6"},
                                          {7.25, "7.25"},
                                          {-0.5, "-0.5"},
                                          {0.0, "0"},
                                          {-0.0, "0"},
                                          {250000.0, "250000"}}) {
        EXPECT_EQ(number_text(value), expected);
    }
    EXPECT_EQ(number_text(9999999999999.99), "9999999999999.99");
}

}  // namespace
}  // namespace kelvar::test
