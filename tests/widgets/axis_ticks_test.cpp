#include "widgets/chart_drawing.h"

#include <gtest/gtest.h>

namespace kelvar::test {

namespace {

TEST(Axis, TicksAreRoundAndWhole) {
    struct Case {
        double bound;
        int most;
        double step;
    };
    const Case cases[] = {{1.0, 7, 1.0},          {9.0, 7, 2.0},          {11.0, 7, 2.0},
                          {15.0, 7, 5.0},         {25.0, 7, 5.0},         {25.0, 3, 10.0},
                          {100.0, 4, 25.0},       {110000.0, 7, 20000.0}, {130000.0, 7, 20000.0},
                          {170000.0, 7, 25000.0}, {180000.0, 7, 50000.0}, {9100.0, 3, 5000.0},
                          {7500.0, 3, 2500.0},    {1e13, 7, 2e12}};
    for (const auto& [bound, most, step] : cases) {
        EXPECT_EQ(tick_step(bound, most), step) << bound << " in " << most;
    }
}

}  // namespace

}  // namespace kelvar::test
