#include "output/report/report_templates.h"

#include <gtest/gtest.h>

#include "core/scenario.h"

namespace kelvar::test {

namespace {

TEST(ReportTemplates, FollowMethodAndLength) {
    struct Case {
        int method;
        int length_option;
        std::vector<std::string> templates;
    };
    const Case cases[] = {
        {lump_sum, no_length, {"lumpsum.rpt"}},
        {lump_sum, by_life_expectancy, {"lumpsum.rpt"}},
        {periodic_payments, by_number_of_payments, {"periodic.rpt", "schedule.rpt"}},
        {periodic_payments, by_dollar_amount, {"periodic.rpt", "schefix.rpt"}},
        {periodic_payments, by_life_expectancy, {"periodic.rpt", "schelife.rpt"}},
        {periodic_payments, no_length, {"periodic.rpt", "periodic.rpt"}},
        {periodic_payments, 4, {"periodic.rpt", "periodic.rpt"}},
        {partial_lump_sum, by_number_of_payments, {"partial.rpt", "schedule.rpt"}},
        {partial_lump_sum, by_dollar_amount, {"partial.rpt", "schefix.rpt"}},
        {partial_lump_sum, by_life_expectancy, {"partial.rpt", "schelife.rpt"}},
        {partial_lump_sum, no_length, {"partial.rpt"}},
        {no_method, by_life_expectancy, {}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(report_templates(c.method, c.length_option), c.templates)
            << c.method << ' ' << c.length_option;
    }
}

}  // namespace

}  // namespace kelvar::test
