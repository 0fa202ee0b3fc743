#include "output/report/report.h"

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStringDecoder>
#include <QTextBlock>
#include <algorithm>
#include <kainjow/mustache.hpp>
#include <optional>

#include "output/report/long_table_pages.h"
#include "output/report/page_painter.h"
#include "output/report/report_fields.h"
#include "output/report/template_tags.h"
#include "widgets/text.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

namespace mustache = kainjow::mustache;

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

// What the template's own text comes to when every section of a list is written out, in bytes. Its tags
// count as text, so that sections that write nothing have an end as well. Refuses what cannot be told.
double written_out(const std::filesystem::path& file, const std::string& text, std::size_t payments,
                   const ReportValues& result) {
    std::vector<double> times{1.0};  // how often the text is written, for each section that is open
    double bytes = 0.0;
    std::size_t at = 0;
    while (const std::optional<Tag> tag = next_tag(text, at)) {
        bytes += static_cast<double>(tag->end - at) * times.back();
        at = tag->end;
        if (tag->kind == '#') {
            times.push_back(times.back() * entries(tag->name, payments, result));
        } else if (tag->kind == '^') {
            times.push_back(times.back());
        } else if (tag->kind == '/' && times.size() > 1) {
            times.pop_back();
        } else if (tag->kind == '=') {
            refuse(file, "changes the marks of its tags" + in_line(text, tag->place) + ".");
        }
        if (times.size() > 1 + most_sections) {
            refuse(file,
                   "has more than 2 sections inside each other" + in_line(text, tag->place) + ".");
        }
    }
    return bytes + static_cast<double>(text.size() - at);
}

// The first tag of this name that found nothing: the same name can be a field inside of a section.
std::size_t place_of_unknown(const std::string& text, const std::string& name,
                             const mustache::data& fields) {
    mustache::context<std::string> known(&fields);
    std::size_t open = 0;       // sections
    std::size_t unwritten = 0;  // the outermost open one that is not written, counted from 1
    std::optional<Tag> tag = next_tag(text, 0);
    for (; tag; tag = next_tag(text, tag->end)) {
        const mustache::data* found = tag->kind == '>' ? nullptr : known.get(tag->name);
        if (tag->kind == '/') {
            unwritten = unwritten == open ? 0 : unwritten;
            --open;
            known.pop();
        } else if (unwritten == 0 && tag->name == name && found == nullptr) {
            break;
        } else if (tag->kind == '#' || tag->kind == '^') {
            const bool says_nothing = found == nullptr || found->is_false() || found->is_empty_list();
            ++open;
            unwritten = unwritten == 0 && says_nothing == (tag->kind == '#') ? open : unwritten;
            const bool is_list = found != nullptr && found->is_non_empty_list();
            known.push(is_list ? &found->list_value().front() : &fields);
        }
    }
    return tag ? tag->place : 0;
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

struct Filled {
    std::string text;  // of the template
    std::string html;
};

Filled filled(const std::filesystem::path& template_file, Database& database,
              const ReportValues& result) {
    const std::string text = read_template(template_file);
    const double bytes = written_out(template_file, text, database.schedule().RecordCount(), result);
    if (bytes > longest_report) {
        refuse_length(template_file);
    }
    if (const auto fault = section_fault(text)) {
        refuse(template_file, "is faulty: " + *fault + ".");
    }
    mustache::mustache report(text);
    if (!report.is_valid()) {
        refuse(template_file, "is faulty: " + fault_in_line(text, report.error_message()) + ".");
    }
    const mustache::data data = fields_of(text, database, result);
    Fields fields(&data, template_file, bytes);
    const std::string html = report.render(fields);
    if (!report.is_valid()) {
        refuse(template_file, "is faulty: " + report.error_message() + ".");
    }
    if (fields.unknown()) {
        const std::string& name = *fields.unknown();
        refuse(template_file, "names an unknown field: \"" + name + "\"" +
                                  in_line(text, place_of_unknown(text, name, data)) + ".");
    }
    if (static_cast<double>(html.size()) > longest_report) {
        refuse_length(template_file);
    }
    return {text, html};
}

Report read_report(const std::filesystem::path& file, const Filled& filled, PaintChart chart) {
    auto document = std::make_shared<ReportDocument>(file.parent_path(), std::move(chart));
    if (const auto why = document->read(to_qt(filled.html))) {
        refuse(file, refusal_in_line(filled.text, *why));
    }
    return document;
}

// What the HTML names, in points and pages from its first one on.
void add_names(std::vector<OutlineEntry>& headings, const ReportDocument& report, int first_page,
               const QRectF& body, double points) {
    const double page_height = report.pageSize().height();
    for (QTextBlock block = report.begin(); block.isValid(); block = block.next()) {
        for (auto text = block.begin(); !text.atEnd(); ++text) {
            for (const QString& name : text.fragment().charFormat().anchorNames()) {
                const double top = report.documentLayout()->blockBoundingRect(block).top();
                const int page = static_cast<int>(top / page_height);
                const double scale = body.height() / page_height;
                headings.push_back({name, 1, first_page + page,
                                    (body.top() + (top - page * page_height) * scale) * points});
            }
        }
    }
}

}  // namespace

Report fill_template(const std::filesystem::path& template_file, Database& database,
                     const ReportValues& result) {
    Report document = read_report(template_file, filled(template_file, database, result), result.chart);
    QStringList whose;
    if (!result.participant.empty()) {
        whose << to_qt(result.participant);
    }
    if (!result.rate.empty()) {
        whose << to_qt(result.rate) + u" a year"_s;
    }
    whose << u"figures of "_s + to_qt(result.date);
    document->whose = whose.join(u", "_s);
    return document;
}

void add_office_words(ReportValues& result, const std::filesystem::path& office_file,
                      Database& database) {
    if (!std::filesystem::exists(office_file)) {
        return;
    }
    const Filled office = filled(office_file, database, result);
    read_report(office_file, office, {});  // refuses what it may not use
    static const QRegularExpression page(
        u"^.*<body[^>]*>|</body>.*$"_s,
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression rule(u"<hr[^>]*>"_s, QRegularExpression::CaseInsensitiveOption);
    const QString words = to_qt(office.html).remove(page);
    const QRegularExpressionMatch found = rule.match(words);
    result.office_above = to_utf8(words.left(std::max<qsizetype>(0, found.capturedStart())));
    result.office_next = to_utf8(words.mid(std::max<qsizetype>(0, found.capturedEnd())));
}

std::vector<OutlineEntry> draw_reports(const std::vector<Report>& reports, QPagedPaintDevice& device,
                                       PageCounter* counter) {
    int page_count = 0;
    for (const Report& report : reports) {
        lay_out_report(*report, device);
        page_count += report->pageCount();
    }
    PagePainter pages(device, page_count, counter);
    std::vector<OutlineEntry> headings;
    int first_page = 0;
    for (const Report& report : reports) {
        const QString title = report->metaInformation(QTextDocument::DocumentTitle);
        const double points = 72.0 / device.logicalDpiY();
        headings.push_back({title, 0, first_page, 0.0});
        add_names(headings, *report, first_page,
                  pages.body().translated(0.0, page_margins.top() / points), points);
        const int last = report->pageCount() - 1;
        first_page += last + 1;
        for (int page = 0; page <= last; ++page) {
            if (!pages.next_page(title, report->whose)) {
                continue;
            }
            pages.draw(*report, page);
            if (page == last && report->chart_below) {
                const double text = report->size().height() - last * report->pageSize().height();
                report->chart_below(pages.painter(), pages.body().adjusted(0.0, text, 0.0, 0.0));
            }
        }
    }
    pages.finish();
    return headings;
}

Report chart_page(const QString& title, const QString& above, PaintChart chart) {
    auto page = std::make_shared<ReportDocument>(std::filesystem::path());
    page->setHtml(above);
    page->setMetaInformation(QTextDocument::DocumentTitle, title);
    page->chart_below = std::move(chart);
    return page;
}

}  // namespace kelvar
