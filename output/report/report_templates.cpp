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

// Of what belongs to payments, beginning with the summary.
std::vector<std::string> chosen_parts(const std::string& summary, const std::string& schedule,
                                      Parts parts) {
    switch (parts) {
        case Parts::summary:
            return {summary};
        case Parts::summary_and_years:
            return {summary, "yearly.rpt"};
        default:
            return {summary, "yearly.rpt", schedule};
    }
}

}  // namespace

std::vector<std::string> report_templates(int method, int length_option, Parts parts) {
    const std::string schedule = schedule_template(length_option);
    const bool all = parts == Parts::everything;
    switch (method) {
        case lump_sum:
            return {"lumpsum.rpt"};
        case periodic_payments:
            if (schedule.empty()) {
                return std::vector<std::string>(all ? 2 : 1, "periodic.rpt");
            }
            return chosen_parts("periodic.rpt", schedule, parts);
        case partial_lump_sum:
            return chosen_parts("partial.rpt", schedule, schedule.empty() ? Parts::summary : parts);
        default:
            return {};
    }
}

}  // namespace kelvar
