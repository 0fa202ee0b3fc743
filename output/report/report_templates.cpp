#include "output/report/report_templates.h"

#include "core/scenario.h"

namespace kelvar {

namespace {

std::string schedule_template(int length_option) {
    switch (length_option) {
        case by_number_of_payments:
            return "schedule.rpt";
        case by_dollar_amount:
            return "schefix.rpt";
        case by_life_expectancy:
            return "schelife.rpt";
        default:
            return {};
    }
}

}  // namespace

std::vector<std::string> report_templates(int method, int length_option, PrintedParts parts) {
    if (method == lump_sum) {
        return {"lumpsum.rpt"};
    }
    if (method != periodic_payments && method != partial_lump_sum) {
        return {};
    }
    std::vector<std::string> templates{method == periodic_payments ? "periodic.rpt" : "partial.rpt"};
    const std::string schedule = schedule_template(length_option);
    if (parts.years && !schedule.empty()) {
        templates.emplace_back("yearly.rpt");
    }
    if (parts.payments && !schedule.empty()) {
        templates.push_back(schedule);
    } else if (parts.payments && method == periodic_payments) {
        templates.push_back(templates.front());
    }
    return templates;
}

}  // namespace kelvar
