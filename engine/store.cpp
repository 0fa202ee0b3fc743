#include "engine/store.h"

#include <fmt/format.h>

namespace kelvar {

namespace {

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
