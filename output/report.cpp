#include "output/report.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>
#include <QTextDocument>
#include <kainjow/mustache.hpp>
#include <memory>
#include <optional>

#include "core/numbers.h"
#include "core/scenario.h"
#include "output/page_painter.h"
#include "shell/text.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

namespace mustache = kainjow::mustache;

constexpr const char* money = "$###,###,##0.00";

void set_fields(mustache::data& record, const Recordset& rows, std::size_t row,
                std::initializer_list<const char*> texts, std::initializer_list<const char*> amounts) {
    for (const char* field : texts) {
        record.set(field, as_text(rows.cell(row, rows.column(field))));
    }
    for (const char* field : amounts) {
        const FieldValue& value = rows.cell(row, rows.column(field));
        record.set(field, as_text(value));
        record.set(std::string(field) + "_money", format_number(as_number(value), money));
    }
}

mustache::data fields_of(Database& database) {
    const Recordset& distrib = database.distrib();
    mustache::data heading;
    set_fields(heading, distrib, 0,
               {"dtitle", "dsubtitle", "frstdate", "scnddate", "payments", "paylength", "totalvalue",
                "rate", "fee"},
               {"curvalue", "startvalue", "scndvalue", "partial", "fixamount"});

    const Recordset& schedule = database.schedule();
    mustache::data payments(mustache::data::type::list);
    double total = 0.0;
    for (std::size_t row = 0; row < schedule.RecordCount(); ++row) {
        mustache::data payment;
        set_fields(payment, schedule, row, {"number", "remaining", "Month", "Year"},
                   {"startbalance", "payment", "remainbalance"});
        payments.push_back(payment);
        total += as_number(schedule.cell(row, schedule.column("payment")));
    }

    const int length = static_cast<int>(as_number(distrib.cell(0, distrib.column("paylength"))));
    mustache::data fields;
    fields.set("distrib", heading);
    fields.set("schedule", payments);
    fields.set("schedule_total_money", format_number(total, money));
    fields.set("by_number_of_payments", length == by_number_of_payments);
    fields.set("by_dollar_amount", length == by_dollar_amount);
    fields.set("by_life_expectancy", length == by_life_expectancy);
    return fields;
}

// Remembers the first name that nothing is known under.
class Fields : public mustache::context<std::string> {
public:
    explicit Fields(const mustache::data* data) : context(data) {}

    const mustache::data* get(const std::string& name) const override {
        return noted(name, context::get(name));
    }
    const mustache::data* get_partial(const std::string& name) const override {
        return noted(name, context::get_partial(name));
    }
    const std::optional<std::string>& unknown() const { return unknown_; }

private:
    const mustache::data* noted(const std::string& name, const mustache::data* found) const {
        if (found == nullptr && !unknown_) {
            unknown_ = name;
        }
        return found;
    }

    mutable std::optional<std::string> unknown_;
};

[[noreturn]] void refuse(const std::filesystem::path& file, const std::string& why) {
    throw PrintError("The report template " + file.string() + " " + why);
}

// A pipe or a device could be read for ever, and sections inside each other cost their number squared.
constexpr qint64 longest_template = 1'000'000;  // bytes
constexpr qsizetype most_sections = 200;

std::string read_template(const std::filesystem::path& file) {
    const QString name = QString::fromStdString(file.string());
    const QFileInfo info(name);
    if (info.exists() && !info.isFile()) {
        refuse(file, "is not a file.");
    }
    if (info.size() > longest_template) {
        refuse(file, "is longer than a million bytes.");
    }
    QFile input(name);
    if (!input.open(QIODevice::ReadOnly)) {
        refuse(file, "cannot be read: " + to_utf8(input.errorString()) + ".");
    }
    const QByteArray bytes = input.readAll();
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder.decode(bytes);
    if (decoder.hasError() || text.contains(QChar::Null)) {
        refuse(file, "is not a text file in UTF-8.");
    }
    if (text.trimmed().isEmpty()) {
        refuse(file, "is empty.");
    }
    if (bytes.count("{{#") + bytes.count("{{^") > most_sections) {
        refuse(file, "has too many sections.");
    }
    return bytes.toStdString();
}

}  // namespace

QString fill_template(const std::filesystem::path& template_file, Database& database) {
    mustache::mustache report(read_template(template_file));
    if (!report.is_valid()) {
        // The engine's message ends in a bare number, the place counted in characters.
        refuse(template_file, "is faulty: " + report.error_message() + " characters from its start.");
    }
    const mustache::data data = fields_of(database);
    Fields fields(&data);
    const std::string html = report.render(fields);
    if (!report.is_valid()) {
        refuse(template_file, "is faulty: " + report.error_message() + ".");
    }
    if (fields.unknown()) {
        refuse(template_file, "names an unknown field: \"" + *fields.unknown() + "\".");
    }
    return to_qt(html);
}

QString report_title(const QString& html) {
    QTextDocument document;
    document.setHtml(html.left(html.indexOf(u"<body"_s)));
    return document.metaInformation(QTextDocument::DocumentTitle);
}

void draw_reports(const std::vector<QString>& reports, Date printed, QPagedPaintDevice& device) {
    std::vector<std::unique_ptr<QTextDocument>> documents;
    int page_count = 0;
    for (const QString& html : reports) {
        documents.push_back(lay_out(html, device));
        page_count += documents.back()->pageCount();
    }
    PagePainter pages(device, printed, page_count);
    for (const auto& document : documents) {
        for (int page = 0; page < document->pageCount(); ++page) {
            pages.next_page(document->metaInformation(QTextDocument::DocumentTitle));
            pages.draw(*document, page);
        }
    }
    pages.finish();
}

}  // namespace kelvar
