#include "output/report/report.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>
#include <kainjow/mustache.hpp>
#include <optional>

#include "core/numbers.h"
#include "core/scenario.h"
#include "output/report/page_painter.h"
#include "output/report/report_document.h"
#include "widgets/text.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

namespace mustache = kainjow::mustache;

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
    fields.set("schedule_total_money", format_number(total, pattern::dollars));
    fields.set("by_number_of_payments", length == by_number_of_payments);
    fields.set("by_dollar_amount", length == by_dollar_amount);
    fields.set("by_life_expectancy", length == by_life_expectancy);
    return fields;
}

[[noreturn]] void refuse(const std::filesystem::path& file, const std::string& why) {
    throw PrintError("The report template " + file.string() + " " + why);
}

// A pipe or a device could be read for ever, and each section inside another one multiplies.
constexpr qint64 longest_template = 1'000'000;  // bytes
constexpr double longest_report = 20'000'000;   // bytes, filled in
constexpr std::size_t most_sections = 2;        // inside each other

[[noreturn]] void refuse_length(const std::filesystem::path& file) {
    refuse(file, "gives more than 20 MB of text.");
}

// What the template's own text comes to when every section of payments is written out, in bytes. Its
// tags count as text, so that sections that write nothing have an end as well. Refuses what cannot be
// told.
double written_out(const std::filesystem::path& file, const std::string& text, std::size_t payments) {
    const QByteArrayView rest(text);
    std::vector<double> times{1.0};  // how often the text is written, for each section that is open
    double bytes = 0.0;
    qsizetype at = 0;
    for (qsizetype tag = rest.indexOf("{{"); tag >= 0; tag = rest.indexOf("{{", at)) {
        const qsizetype end = rest.indexOf("}}", tag);
        if (end < 0) {
            break;
        }
        const QByteArrayView name = rest.sliced(tag + 2, end - tag - 2).trimmed();
        bytes += static_cast<double>(end + 2 - at) * times.back();
        at = end + 2;
        if (name.startsWith('#') || name.startsWith('^')) {
            const bool all = name.startsWith('#') && name.sliced(1).trimmed() == "schedule";
            times.push_back(times.back() * (all ? static_cast<double>(payments) : 1.0));
        } else if (name.startsWith('/') && times.size() > 1) {
            times.pop_back();
        } else if (name.startsWith('=')) {
            refuse(file, "changes the marks of its tags.");
        }
        if (times.size() > 1 + most_sections) {
            refuse(file, "has more than 2 sections inside each other.");
        }
    }
    return bytes + static_cast<double>(rest.size() - at);
}

// Counts what is written, and remembers the first name that nothing is known under.
class Fields : public mustache::context<std::string> {
public:
    Fields(const mustache::data* data, const std::filesystem::path& file, double bytes)
        : context(data), file_(file), bytes_(bytes) {}

    const mustache::data* get(const std::string& name) const override {
        const mustache::data* found = context::get(name);
        note_unknown(name, found == nullptr);
        if (found != nullptr && found->is_string()) {
            bytes_ += static_cast<double>(found->string_value().size());
        }
        if (bytes_ > longest_report) {
            refuse_length(file_);
        }
        return found;
    }
    // No template has another one inside: a field's text must not be one.
    const mustache::data* get_partial(const std::string& name) const override {
        note_unknown(name, true);
        return nullptr;
    }
    const std::optional<std::string>& unknown() const { return unknown_; }

private:
    void note_unknown(const std::string& name, bool is_unknown) const {
        if (is_unknown && !unknown_) {
            unknown_ = name;
        }
    }

    const std::filesystem::path& file_;
    mutable double bytes_;
    mutable std::optional<std::string> unknown_;
};

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
    return bytes.toStdString();
}

}  // namespace

Report fill_template(const std::filesystem::path& template_file, Database& database) {
    const std::string text = read_template(template_file);
    const double bytes = written_out(template_file, text, database.schedule().RecordCount());
    if (bytes > longest_report) {
        refuse_length(template_file);
    }
    mustache::mustache report(text);
    if (!report.is_valid()) {
        // The engine's message ends in a bare number, the place counted in characters.
        refuse(template_file, "is faulty: " + report.error_message() + " characters from its start.");
    }
    const mustache::data data = fields_of(database);
    Fields fields(&data, template_file, bytes);
    const std::string html = report.render(fields);
    if (!report.is_valid()) {
        refuse(template_file, "is faulty: " + report.error_message() + ".");
    }
    if (fields.unknown()) {
        refuse(template_file, "names an unknown field: \"" + *fields.unknown() + "\".");
    }
    if (static_cast<double>(html.size()) > longest_report) {
        refuse_length(template_file);
    }
    auto document = std::make_shared<ReportDocument>(template_file.parent_path());
    set_style(*document);
    if (const auto why = document->read(to_qt(html))) {
        refuse(template_file, *why);
    }
    return document;
}

void draw_reports(const std::vector<Report>& reports, Date printed, QPagedPaintDevice& device) {
    int page_count = 0;
    for (const Report& report : reports) {
        lay_out(*report, device);
        page_count += report->pageCount();
    }
    PagePainter pages(device, printed, page_count);
    for (const Report& report : reports) {
        for (int page = 0; page < report->pageCount(); ++page) {
            pages.next_page(report->metaInformation(QTextDocument::DocumentTitle));
            pages.draw(*report, page);
        }
    }
    pages.finish();
}

}  // namespace kelvar
