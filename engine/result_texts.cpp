#include "engine/result_texts.h"

#include <fmt/format.h>

#include "core/numbers.h"
#include "core/plan.h"

namespace kelvar {

std::string money_text(double dollars) {
    return format_number(dollars, pattern::dollars);
}

std::string fee_text(std::int16_t fee) {
    return format_number(fee, pattern::fee);
}

std::string lump_sum_fee_text() {
    return fmt::format("Until a lump sum is paid, ${:.0f} of it a year is charged.",
                       plan::lump_sum_fee);
}

std::string rate_text(double rate, std::int16_t method) {
    const bool blank = method != lump_sum && rate >= 0.0;
    std::string text = blank ? " " : "";
    text += number_text(rate);
    text += '%';
    return text;
}

std::string count_text(int count, std::string_view thing) {
    return fmt::format("{} {}{}", count, thing, count == 1 ? "" : "s");
}

std::string time_text(int months) {
    const std::string years = months < 12 ? "" : count_text(months / 12, "year");
    const std::string rest = months % 12 == 0 ? "" : count_text(months % 12, "month");
    return years + (years.empty() || rest.empty() ? "" : " and ") + rest;
}

std::string_view method_title(std::int16_t method) {
    switch (method) {
        case lump_sum:
            return "Lump Sum";
        case partial_lump_sum:
            return "Partial Lump Sum Payments";
        default:
            return "Periodic Payments";
    }
}

std::string title_with_frequency(const Scenario& scenario) {
    return fmt::format("{} - {}", method_title(scenario.method),
                       plan::frequency(scenario.frequency).name);
}

std::string_view table_name(const Scenario& scenario) {
    if (over_joint_life(scenario)) {
        return "joint life expectancy";
    }
    return scenario.lookup_age < plan::minimum_distribution_from ? "single life expectancy"
                                                                 : "minimum distribution years";
}

std::string_view table_source(const Scenario& scenario) {
    if (over_joint_life(scenario)) {
        return "Joint and Last Survivor table, federal tables in force since 2022";
    }
    if (scenario.lookup_age < plan::minimum_distribution_from) {
        return "Single Life table, federal tables in force since 2022";
    }
    return scenario.lookup_age < plan::federal_uniform_table_from
               ? "This program's table (the federal one begins at 72)"
               : "Uniform Lifetime table, federal tables in force since 2022";
}

std::string_view no_result_text(Outcome outcome) {
    switch (outcome) {
        case Outcome::limit_exceeded:
            return "At this rate of return the payments would outlast your life expectancy or minimum "
                   "distribution years.";
        case Outcome::nothing_left:
            return "There are no payments to show because nothing is left in the account when they "
                   "would begin.";
        case Outcome::no_payments:
            return "There are no payments to show for this length of payments.";
        default:
            return "";
    }
}

}  // namespace kelvar
