#include "output/report/report_fields.h"

#include <utility>

#include "core/numbers.h"
#include "core/scenario.h"
#include "engine/chart_rules.h"
#include "output/report/template_tags.h"

namespace kelvar {

namespace mustache = kainjow::mustache;

namespace {

void set_fields(mustache::data& record, const Recordset& rows, std::size_t row,
                std::initializer_list<const char*> texts, std::initializer_list<const char*> amounts) {
    for (const char* field : texts) {
        record.set(field, as_text(rows.cell(row, rows.column(field))));
    }
    for (const char* field : amounts) {
        const FieldValue& value = rows.cell(row, rows.column(field));
        record.set(field, as_text(value));
        record.set(std::string(field) + "_money", format_number(as_number(value), pattern::dollars));
    }
}

constexpr std::pair<const char*, std::string ReportValues::*> result_texts[] = {
    {"participant", &ReportValues::participant},
    {"title", &ReportValues::title},
    {"rate", &ReportValues::rate},
    {"date", &ReportValues::date},
    {"balance", &ReportValues::balance},
    {"headline", &ReportValues::headline},
    {"figure", &ReportValues::figure},
    {"figure_period", &ReportValues::figure_period},
    {"figure_note", &ReportValues::figure_note},
    {"first_amount", &ReportValues::first_amount},
    {"first_month", &ReportValues::first_month},
    {"first_age", &ReportValues::first_age},
    {"next_amount", &ReportValues::next_amount},
    {"next_month", &ReportValues::next_month},
    {"last_amount", &ReportValues::last_amount},
    {"last_month", &ReportValues::last_month},
    {"last_age", &ReportValues::last_age},
    {"life", &ReportValues::life},
    {"life_age", &ReportValues::life_age},
    {"spouse_age", &ReportValues::spouse_age},
    {"divisor", &ReportValues::divisor},
    {"table", &ReportValues::table},
    {"lump_sum", &ReportValues::lump_sum},
    {"fee_note", &ReportValues::fee_note},
    {"before", &ReportValues::before},
    {"federal_minimum", &ReportValues::federal_minimum},
    {"until", &ReportValues::until},
    {"another_rate", &ReportValues::another_rate},
    {"office_above", &ReportValues::office_above},
    {"office_next", &ReportValues::office_next},
    {"below_minimum", &ReportValues::below_minimum},
    {"payment_count", &ReportValues::payment_count},
    {"total_years", &ReportValues::total_years},
    {"total_payments", &ReportValues::total_payments},
    {"total_earnings", &ReportValues::total_earnings},
    {"total_fees", &ReportValues::total_fees},
    {"total_paid", &ReportValues::total_paid},
    {"spread", &ReportValues::spread}};
constexpr std::pair<const char*, std::vector<NamedTexts> ReportValues::*> result_lists[] = {
    {"facts", &ReportValues::facts},
    {"why", &ReportValues::why},
    {"chosen", &ReportValues::chosen},
    {"words", &ReportValues::words},
    {"not_worked_out", &ReportValues::not_worked_out},
    {"notes", &ReportValues::notes},
    {"ledger", &ReportValues::ledger},
    {"years", &ReportValues::years},
    {"rates", &ReportValues::rates},
    {"choices", &ReportValues::choices},
    {"even", &ReportValues::even}};

// What says nothing is false.
mustache::data text_or_false(const std::string& text) {
    return text.empty() ? mustache::data(false) : mustache::data(text);
}

mustache::data entries_of(const std::vector<NamedTexts>& list) {
    mustache::data entries(mustache::data::type::list);
    for (const NamedTexts& texts : list) {
        mustache::data entry;
        for (const auto& [name, text] : texts) {
            entry.set(name, text_or_false(text));
        }
        entries.push_back(entry);
    }
    return entries;
}

mustache::data values_of(const ReportValues& result) {
    mustache::data values;
    for (const auto& [name, text] : result_texts) {
        values.set(name, text_or_false(result.*text));
    }
    for (const auto& [name, list] : result_lists) {
        values.set(name, entries_of(result.*list));
    }
    values.set("chart", static_cast<bool>(result.chart));
    values.set("wide", result.wide);
    return values;
}

bool names_schedule(const std::string& text) {
    std::optional<Tag> tag = next_tag(text, 0);
    while (tag && tag->name.find("schedule") == std::string::npos) {
        tag = next_tag(text, tag->end);
    }
    return tag.has_value();
}

// The payments in their order. The last one of every year knows what the year comes to.
void add_payments(mustache::data& fields, const Recordset& schedule) {
    const std::size_t year = schedule.column("Year");
    const std::size_t paid = schedule.column("payment");
    const std::size_t count = schedule.RecordCount();
    mustache::data payments(mustache::data::type::list);
    double total = 0.0;
    int year_payments = 0;
    for (std::size_t row = 0; row < count; ++row) {
        mustache::data payment;
        set_fields(payment, schedule, row, {"number", "remaining", "Month", "Year"},
                   {"startbalance", "payment", "remainbalance"});
        total += as_number(schedule.cell(row, paid));
        ++year_payments;
        payment.set("first_of_year", year_payments == 1);
        const bool last = row + 1 == count ||
                          as_text(schedule.cell(row + 1, year)) != as_text(schedule.cell(row, year));
        payment.set("last_of_year", last);
        if (last) {
            payment.set("year_payments", std::to_string(year_payments) +
                                             (year_payments == 1 ? " payment" : " payments"));
            year_payments = 0;
            const auto of_year = static_cast<int>(as_number(schedule.cell(row, year)));
            payment.set("year_total_money",
                        format_number(get_amount(schedule, of_year), pattern::dollars));
        }
        payments.push_back(payment);
    }
    fields.set("schedule", payments);
    fields.set("schedule_total_money", format_number(total, pattern::dollars));
}

}  // namespace

mustache::data fields_of(const std::string& text, Database& database, const ReportValues& result) {
    const Recordset& distrib = database.distrib();
    mustache::data heading;
    set_fields(heading, distrib, 0,
               {"dtitle", "dsubtitle", "frstdate", "scnddate", "payments", "paylength", "totalvalue",
                "rate", "fee"},
               {"curvalue", "startvalue", "scndvalue", "partial", "fixamount"});
    const int length = static_cast<int>(as_number(distrib.cell(0, distrib.column("paylength"))));
    mustache::data fields;
    fields.set("distrib", heading);
    if (names_schedule(text)) {
        add_payments(fields, database.schedule());
    }
    fields.set("result", values_of(result));
    fields.set("by_number_of_payments", length == by_number_of_payments);
    fields.set("by_dollar_amount", length == by_dollar_amount);
    fields.set("by_life_expectancy", length == by_life_expectancy);
    return fields;
}

double entries(std::string_view name, std::size_t payments, const ReportValues& result) {
    const std::string_view own = name.substr(name.rfind('.') + 1);
    if (own == "schedule") {
        return static_cast<double>(payments);
    }
    for (const auto& [list, values] : result_lists) {
        if (own == list) {
            return static_cast<double>((result.*values).size());
        }
    }
    return 1.0;
}

}  // namespace kelvar
