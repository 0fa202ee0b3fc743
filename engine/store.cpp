#include "engine/store.h"

#include <fmt/format.h>

#include "core/plan.h"
#include "engine/result_texts.h"

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

void append(Recordset& table, const PaymentRow& row) {
    table.AddNew();
    table.set("number", std::int64_t{row.number});
    table.set("remaining", std::int64_t{row.remaining});
    table.set("startbalance", row.startbalance);
    table.set("payment", row.payment);
    table.set("remainbalance", row.remainbalance);
    table.set("Month", std::string{month_name(month_of(row.date))});
    table.set("Year", fmt::format("{:04}", year_of(row.date)));
    table.Update();
}

}  // namespace

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

void add_table(Database& database, const Heading& heading) {
    Recordset& table = database.distrib();
    table.MoveFirst();
    table.Edit();
    for (const auto& [field, value] : heading) {
        table.set(field, value);
    }
    table.Update();
}

void store(Database& database, const PaymentSchedule& schedule, const Heading& heading) {
    Database::Transaction transaction(database);
    database.schedule().DeleteAll();
    for (const PaymentRow& row : schedule.rows) {
        append(database.schedule(), row);
    }
    if (!heading.empty()) {
        add_table(database, heading);
    }
    transaction.commit();
}

}  // namespace kelvar
