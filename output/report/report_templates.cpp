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

std::vector<std::string> report_templates(int method, int length_option) {
    const std::string schedule = schedule_template(length_option);
    switch (method) {
        case lump_sum:
            return {"lumpsum.rpt"};
        case periodic_payments:
            return {"periodic.rpt", schedule.empty() ? "periodic.rpt" : schedule};
        case partial_lump_sum:
            return schedule.empty() ? std::vector<std::string>{"partial.rpt"}
                                    : std::vector{std::string("partial.rpt"), schedule};
        default:
            return {};
    }
}

}  // namespace kelvar
