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

std::vector<std::string> chosen_parts(const std::string& summary, const std::string& payments,
                                      Parts parts) {
    std::vector<std::string> templates{summary};
    if (parts == Parts::summary_and_years) {
        templates.emplace_back("yearly.rpt");
    }
    if (parts == Parts::everything && !payments.empty()) {
        templates.push_back(payments);
    }
    return templates;
}

}  // namespace

std::vector<std::string> report_templates(int method, int length_option, Parts parts) {
    const std::string schedule = schedule_template(length_option);
    switch (method) {
        case lump_sum:
            return {"lumpsum.rpt"};
        case periodic_payments:
            return chosen_parts("periodic.rpt", schedule.empty() ? "periodic.rpt" : schedule, parts);
        case partial_lump_sum:
            return chosen_parts("partial.rpt", schedule, parts);
        default:
            return {};
    }
}

}  // namespace kelvar
