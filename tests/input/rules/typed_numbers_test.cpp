#include "input/rules/typed_numbers.h"

#include <gtest/gtest.h>

namespace kelvar::test {
namespace {

TEST(TypedNumber, LosesItsSignAndMustBeWhole) {
    const std::pair<const char*, double> numbers[] = {{"25000", 25000.0},
                                                      {"-25000", 25000.0},
                                                      {"+25000", 25000.0},
                                                      {"  25,000.00  ", 25000.0},
                                                      {"-$1,200.50", 1200.5},
                                                      {"1,234,567", 1234567.0},
                                                      {"1e3", 1000.0},
                                                      {".5", 0.5},
                                                      {"9999999999999.99", 9999999999999.99}};
    for (const auto& [text, expected] : numbers) {
        EXPECT_EQ(read_unsigned(text), expected) << '"' << text << '"';
        EXPECT_EQ(get_num(text), expected) << '"' << text << '"';
    }
    EXPECT_EQ(get_num("9,999,999,999,999.99"), 9999999999999.99);
    EXPECT_EQ(get_num("9999999999999.995"), std::nullopt) << "half a cent too large";
    EXPECT_EQ(read_unsigned(std::string(54, ' ') + "250000"), 250000.0);
    EXPECT_EQ(read_unsigned(std::string(55, ' ') + "250000"), std::nullopt) << "too long";
    EXPECT_EQ(read_unsigned("-10,000,000,000,000"), 1e13);
    EXPECT_EQ(get_num("-10,000,000,000,000"), std::nullopt) << "too large for cents";
    EXPECT_EQ(read_unsigned("999999999999999999999999999999"), 1e30);
    for (const char* text :
         {"1e400", "-1e400", "nan", "inf", "0x10", "25,00", "1,,000", ",250", "25 000", "2.5.0",
          "--5",   "+-5",    "5-",  "25x", "abc",  "-",     ".",      "$",    "   ",    ""}) {
        EXPECT_EQ(read_unsigned(text), std::nullopt) << '"' << text << '"';
        EXPECT_EQ(get_num(text), std::nullopt) << '"' << text << '"';
    }
}

}  // namespace
}  // namespace kelvar::test
