// The report engine: fills templates from the open work tables and draws them as pages. It knows no
// screen; what it prints was stored.
//
// A template is HTML with Mustache tags. It sees the heading row as `distrib` and the payments as
// `schedule`, in their order, each field under its own name. Dollar amounts that are stored as numbers
// can also be had written out: `curvalue` is 250000, `curvalue_money` $250,000.00. Beside the fields
// there are `schedule_total_money`, the sum of all rows, and one of `by_number_of_payments`,
// `by_dollar_amount` and `by_life_expectancy` is true. The last payment of a calendar year has
// `last_of_year`, `year_payments` ("12 payments") and `year_total_money` of that year. What is known of
// the result besides is in `result` (see report_values.h): as the condition of a section, a value that
// says nothing is false. A tag that names anything else is an error, so that a slip of the pen leaves
// no gap in a printout.
//
// What a template can cost is bounded: 20 MB of text and 50,000 elements once it is filled in, sections
// at most 2, tables at most 8 and all elements at most 100 deep, and the files that ReportDocument lets
// it use.
#pragma once

#include <QPagedPaintDevice>
#include <filesystem>
#include <memory>
#include <vector>

#include "core/records.h"
#include "output/report/report_document.h"
#include "output/report/report_values.h"

namespace kelvar {

class PageCounter;

// One finished report, with all that it shows; reading files is over. What its <title> says is the
// document's title.
using Report = std::shared_ptr<ReportDocument>;

// Throws PrintError when the template is missing, empty or faulty, or goes beyond what it may use. The
// images that it names lie in the template's folder. Its image "result:chart" is the result's chart.
Report fill_template(const std::filesystem::path& template_file, Database& database,
                     const ReportValues& result = {});

// Puts the office's own words, from `office.html` in the templates' folder, where the templates have a
// place for them: what stands above its first <hr>, if it has one, goes above the title, the rest says
// what to do next. It is filled and checked like a template; without such a file nothing is added.
void add_office_words(ReportValues& result, const std::filesystem::path& office_file,
                      Database& database);

// Where a part of what was drawn begins, for the outline of a PDF: a report, or below it what its HTML
// names with <a name="...">.
struct OutlineEntry {
    QString text;
    int level;   // 0 or 1
    int page;    // from 0 on
    double top;  // points below the top of the paper
};

// Draws reports one behind the other, each on a new page, pages counted through, each but the first
// with title, participant and date at its head. Throws PrintError, also when the counter does not go
// on.
std::vector<OutlineEntry> draw_reports(const std::vector<Report>& reports, QPagedPaintDevice& device,
                                       PageCounter* counter = nullptr);

// One printed page with headings, tables and a chart below them. `above` is HTML; the chart takes the
// room that it leaves.
Report chart_page(const QString& title, const QString& above, PaintChart chart);

}  // namespace kelvar
