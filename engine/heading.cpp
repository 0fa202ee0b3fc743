#include "engine/heading.h"

#include <fmt/format.h>

#include "core/numbers.h"
#include "core/plan.h"

namespace kelvar {

namespace {

void add_titles(Heading& heading, const Scenario& scenario) {
    if (scenario.method == partial_lump_sum) {
        heading.emplace_back("dtitle", std::string{method_title(scenario.method)});
        heading.emplace_back("dsubtitle", "Lump Sum  + Remaining Paid " +
                                              std::string{plan::frequency(scenario.frequency).name});
    } else if (scenario.method == periodic_payments) {
        heading.emplace_back("dtitle", title_with_frequency(scenario));
    }
}

void add_length(Heading& heading, const Scenario& scenario, const Projection& projection) {
    if (scenario.method == lump_sum) {
        heading.emplace_back("payments", std::int64_t{scenario.number_of_payments});
        return;
    }
    heading.emplace_back("payments", std::int64_t{projection.schedule.number_of_payments});
    if (scenario.length_option == by_dollar_amount) {
        heading.emplace_back("fixamount", scenario.fixed_amount);
    }
    heading.emplace_back("paylength", std::int64_t{scenario.length_option});
}

}  // namespace

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

Heading heading_of(const Scenario& scenario, const Projection& projection) {
    Heading heading;
    if (projection.outcome != Outcome::complete) {
        return heading;
    }
    add_titles(heading, scenario);
    heading.emplace_back("curvalue", scenario.present_value);
    heading.emplace_back("startvalue", projection.start_value);
    heading.emplace_back("frstdate", month_year_text(projection.dates.first.date));
    if (scenario.method == partial_lump_sum) {
        heading.emplace_back("scnddate", month_year_text(projection.dates.second_date));
        heading.emplace_back("scndvalue", projection.second_value);
        heading.emplace_back("partial", projection.lump_sum);
    }
    add_length(heading, scenario, projection);
    heading.emplace_back("totalvalue", money_text(projection.total_paid));
    heading.emplace_back("rate", rate_text(projection.rate, scenario.method));
    heading.emplace_back("fee", fee_text(scenario.fee_amount));
    return heading;
}

}  // namespace kelvar
