#include "output/report/report_templates.h"

#include <gtest/gtest.h>

#include <algorithm>

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
        {periodic_payments, by_number_of_payments, {"periodic.rpt", "yearly.rpt", "schedule.rpt"}},
        {periodic_payments, by_dollar_amount, {"periodic.rpt", "yearly.rpt", "schefix.rpt"}},
        {periodic_payments, by_life_expectancy, {"periodic.rpt", "yearly.rpt", "schelife.rpt"}},
        {periodic_payments, no_length, {"periodic.rpt", "periodic.rpt"}},
        {periodic_payments, 4, {"periodic.rpt", "periodic.rpt"}},
        {partial_lump_sum, by_number_of_payments, {"partial.rpt", "yearly.rpt", "schedule.rpt"}},
        {partial_lump_sum, by_dollar_amount, {"partial.rpt", "yearly.rpt", "schefix.rpt"}},
        {partial_lump_sum, by_life_expectancy, {"partial.rpt", "yearly.rpt", "schelife.rpt"}},
        {partial_lump_sum, no_length, {"partial.rpt"}},
        {no_method, by_life_expectancy, {}},
    };
    for (const Case& c : cases) {
        const PrintedParts everything{.years = true};
        EXPECT_EQ(report_templates(c.method, c.length_option, everything), c.templates)
            << c.method << ' ' << c.length_option;
        std::vector<std::string> parts = c.templates;
        std::erase(parts, "yearly.rpt");
        EXPECT_EQ(report_templates(c.method, c.length_option), parts) << "as long as nothing is ticked";
        parts.resize(std::min<std::size_t>(parts.size(), 1));
        EXPECT_EQ(report_templates(c.method, c.length_option, {.payments = false}), parts);
    }
}

}  // namespace

}  // namespace kelvar::test
