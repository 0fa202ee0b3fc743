#include "output/report/report.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QFontMetricsF>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextFrame>
#include <QTextTable>
#include <QUrl>
#include <fstream>

#include "core/scenario.h"
#include "engine/store.h"
#include "output/report/long_table_pages.h"
#include "output/report/page_painter.h"
#include "output/report/print_job.h"
#include "tests/support/page_words.h"
#include "tests/support/temporary_program_folder.h"
#include "widgets/text.h"
#include "widgets/theme.h"

namespace kelvar::test {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

std::string nested(int times, const std::string& open, const std::string& close) {
    std::string text;
    for (int i = 0; i < times; ++i) {
        text.insert(0, open).append(close);
    }
    return text;
}

class Reports : public ::testing::Test {
protected:
    // 30 payments of a partial lump sum, with every heading field written.
    Reports() {
        store(database, LevelPaymentSchedule({5000.0, 2026y / 11 / 15, 12, 6.0, 80.0}, 30),
              {{"dtitle", std::string("Tom & Jerry <Payments>")},
               {"dsubtitle", std::string("Lump Sum  + Remaining Paid Monthly")},
               {"curvalue", 250000.0},
               {"startvalue", 7000.5},
               {"frstdate", std::string("January, 2026")},
               {"scnddate", std::string("November, 2026")},
               {"scndvalue", 5000.0},
               {"partial", 1999.99},
               {"payments", std::int64_t{30}},
               {"fixamount", 1234.56},
               {"paylength", std::int64_t{by_number_of_payments}},
               {"totalvalue", std::string("$7,350.11")},
               {"rate", std::string(" 6%")},
               {"fee", std::string("$80")}});
    }

    Report shipped(const char* name) {
        return fill_template(std::filesystem::path(KELVAR_REPORTS) / name, database);
    }
    // What is printed, cells in their order, each in a line.
    QString printed(const char* name) { return shipped(name)->toPlainText(); }
    static QTextTable& table_of(const Report& report) {
        return *qobject_cast<QTextTable*>(report->rootFrame()->childFrames().front());
    }
    Report own_report(const std::string& text, const ReportValues& result) {
        const auto file = folder.path() / "own.rpt";
        std::ofstream(file, std::ios::binary) << text;
        return fill_template(file, database, result);
    }
    QString own(const std::string& text, const ReportValues& result = {}) {
        return own_report(text, result)->toPlainText();
    }

    TemporaryProgramFolder folder;
    Database database{folder.database()};
    QBuffer unread;
    QPdfWriter paper{&unread};
};

TEST_F(Reports, SeesFieldsRawAndAsMoney) {
    EXPECT_EQ(own("{{distrib.curvalue}} {{distrib.curvalue_money}}{{distrib.rate}} {{distrib.fee}}"),
              u"250000 $250,000.00 6% $80"_s);
    EXPECT_EQ(own("{{distrib.dtitle}}"), u"Tom & Jerry <Payments>"_s);
    EXPECT_EQ(own("{{#by_number_of_payments}}n{{/by_number_of_payments}}"
                  "{{#by_dollar_amount}}d{{/by_dollar_amount}}{{^by_life_expectancy}}-{{/"
                  "by_life_expectancy}}"),
              u"n-"_s);
    // The first two rows worked out apart with decimal arithmetic.
    EXPECT_TRUE(own("{{#schedule}}{{number}}/{{remaining}} {{Month}} {{Year}} {{startbalance_money}};"
                    "{{/schedule}}")
                    .startsWith(u"1/29 November 2026 $5,000.00;2/28 December 2026 $4,850.65;"_s));
    store(database, LevelPaymentSchedule({5000.0, 2026y / 11 / 15, 12, 6.0, 80.0}, 3), {});
    EXPECT_EQ(own("{{#schedule}}{{#last_of_year}}{{year_payments}};{{/last_of_year}}{{/schedule}}"),
              u"2 payments;1 payment;"_s);
}

TEST_F(Reports, SeesWhatIsKnownOfTheResult) {
    ReportValues result;
    result.headline = "$5 < $6 a month";
    result.years = {{{"year", "2026"}, {"age", ""}}, {{"year", "2027"}, {"age", "71"}}};
    const std::string text =
        "{{result.headline}}{{#result.last_month}}, last{{/result.last_month}}{{result.spread}};"
        "{{#result.years}}{{year}}{{#age}} at {{age}}{{/age}},{{/result.years}}";
    EXPECT_EQ(own(text, result), u"$5 < $6 a month;2026,2027 at 71,"_s);
    EXPECT_EQ(own(text), u";"_s);
}

TEST_F(Reports, PaintTheChartIntoItsPlaceOnThePage) {
    const std::string text =
        "<p>x</p>{{#result.chart}}<p><img src='result:chart' width='192' "
        "height='48'></p>{{/result.chart}}";
    std::vector<QSizeF> painted;
    ReportValues result;
    result.chart = [&](QPainter&, const QRectF& area) { painted.push_back(area.size()); };
    QBuffer pdf;
    ASSERT_TRUE(pdf.open(QIODevice::WriteOnly));
    QPdfWriter writer(&pdf);
    writer.setResolution(600);
    draw_reports({own_report(text, result), own_report(text, {})}, writer);
    EXPECT_EQ(painted, std::vector<QSizeF>{QSizeF(1200.0, 300.0)});
}

// Each template prints what its screen writes and no leftovers of another one.
TEST_F(Reports, ShippedTemplatesPrintTheFieldsOfTheirScreen) {
    const QString title = u"Tom & Jerry"_s, subtitle = u"+ Remaining Paid Monthly"_s,
                  partial = u"$1,999.99"_s, fixed = u"$1,234.56"_s, second = u"November, 2026"_s;
    struct Case {
        const char* name;
        QStringList has;
        QStringList has_not;
    };
    const Case cases[] = {
        {"periodic.rpt", {title}, {subtitle, partial, fixed, second}},
        {"partial.rpt", {title, subtitle}, {fixed}},
        {"lumpsum.rpt", {}, {title, subtitle, partial, fixed, second}},
        {"schedule.rpt", {title, u"$5,000.00"_s, u"$0.00"_s}, {fixed, partial}},
        {"schefix.rpt", {title, fixed, u"$5,000.00"_s, u"$0.00"_s}, {partial}},
        {"schelife.rpt", {title, u"$5,000.00"_s, u"$0.00"_s}, {fixed, partial}},
    };
    for (const Case& c : cases) {
        const QString text = printed(c.name);
        for (const QString& part : c.has) {
            EXPECT_TRUE(text.contains(part)) << c.name << " lacks " << part.toStdString();
        }
        for (const QString& part : c.has_not) {
            EXPECT_FALSE(text.contains(part)) << c.name << " has " << part.toStdString();
        }
    }
}

// However the rows fall: no page of the table begins with a sum or holds a single payment.
TEST_F(Reports, NoRowOfALongTableStandsAlone) {
    std::ofstream(folder.path() / "own.rpt")
        << "<p>before</p><table width='100%' cellspacing='0'><thead><tr><th>#</th></tr></thead>"
           "{{#schedule}}<tr><td>{{number}}</td></tr>"
           "{{#last_of_year}}<tr><td><b>{{year_total_money}}</b></td></tr>{{/last_of_year}}"
           "{{/schedule}}<tr><td><b>{{schedule_total_money}}</b></td></tr></table><p>after</p>";
    for (int payments = 5; payments < 130; ++payments) {
        store(database,
              LevelPaymentSchedule({5000.0, 2026y / (payments % 12 + 1) / 15, 12, 6.0, 80.0}, payments),
              {});
        const Report report = fill_template(folder.path() / "own.rpt", database);
        const int rows = table_of(report).rows();
        for (const auto size : {QPageSize::Letter, QPageSize::A4}) {
            paper.setPageSize(QPageSize(size));
            lay_out_report(*report, paper);
            const QTextTable& table = table_of(report);
            std::vector<QStringList> pages;
            for (int row = 1; row < table.rows(); ++row) {
                const QTextBlock block = table.cellAt(row, 0).firstCursorPosition().block();
                const double y = report->documentLayout()->blockBoundingRect(block).center().y();
                pages.resize(static_cast<std::size_t>(y / report->pageSize().height()) + 1);
                if (!block.text().isEmpty()) {  // else it fills up the page
                    pages.back() << block.text();
                }
            }
            int printed = 1;  // the heading
            for (const QStringList& page : pages) {
                ASSERT_GE(page.size(), 3) << payments;
                EXPECT_FALSE(page.front().startsWith(u'$')) << payments;
                printed += static_cast<int>(page.size());
            }
            EXPECT_EQ(printed, rows) << payments;
        }
    }
    // Wherever the table begins: its heading has two rows below it.
    for (int lines = 40; lines < 75; ++lines) {
        const Report report =
            own_report("<table><tr><td>" + nested(lines, "x<br>", "") +
                           "</table><table cellspacing='0'><thead><tr><th>#</th></tr></thead>"
                           "{{#schedule}}<tr><td>{{number}}</td></tr>{{/schedule}}</table>",
                       {});
        lay_out_report(*report, paper);
        const auto* table = qobject_cast<QTextTable*>(report->rootFrame()->childFrames().back());
        const auto page_of = [&](int row) {
            const QTextBlock block = table->cellAt(row, 0).firstCursorPosition().block();
            return static_cast<int>(report->documentLayout()->blockBoundingRect(block).center().y() /
                                    report->pageSize().height());
        };
        EXPECT_EQ(page_of(0), page_of(2)) << lines;
    }
}

TEST_F(Reports, BrokenTemplatesAreNamedWithTheirFault) {
    std::ofstream(folder.path() / "note.png") << "no picture";
    std::ofstream(folder.path() / "drawing.svg") << "<svg xmlns='http://www.w3.org/2000/svg'/>";
    std::ofstream(folder.path() / "large.png").close();
    std::filesystem::resize_file(folder.path() / "large.png", 10'000'001);
    ASSERT_EQ(mkfifo((folder.path() / "pipe.png").c_str(), 0600), 0);
    const auto elsewhere = std::filesystem::path(KELVAR_REPORTS).parent_path() / "rate.csv";
    std::filesystem::create_symlink(elsewhere, folder.path() / "link.png");
    const std::string rows = "{{#schedule}}", row_end = "{{/schedule}}";
    const std::pair<std::string, const char*> cases[] = {
        {"", "is empty"},
        {"  \n\t", "is empty"},
        {"<p>\n{{distrib.dtitle", "is faulty: Unclosed tag in line 2."},
        {"\n\n{{#schedule}}<p>", "is faulty: Unclosed section \"schedule\" in line 3."},
        {"{{#schedule}}\n{{#last_of_year}}\n{{/schedule}}",
         "is faulty: Unclosed section \"last_of_year\" in line 2."},
        {"{{#schedule}}\n{{/other}}{{/schedule}}", "is faulty: Unopened section \"other\" in line 2."},
        {"{{/schedule}}", "is faulty: Unopened section \"schedule\" in line 1."},
        {"{{distrib.curvalu}}", "unknown field: \"distrib.curvalu\""},
        {"{{#schedule}}{{amount}}{{/schedule}}", "unknown field: \"amount\""},
        {"{{result.headlin}}", "unknown field: \"result.headlin\""},
        {"{{#schedule}}{{number}}{{/schedule}}{{#by_dollar_amount}}\n{{number}}{{/by_dollar_amount}}\n"
         "{{^by_dollar_amount}}{{{ number }}}{{/by_dollar_amount}}",
         "unknown field: \"number\" in line 3."},
        {"{{> other}}", "unknown field: \"other\""},
        {"{{}}", "unknown field: \"\""},
        {std::string(1'000'001, 'x'), "longer than a million"},
        {nested(10'000, "{{#distrib}}", "{{/distrib}}"), "more than 2 sections inside"},
        {nested(3, "{{ ^ by_dollar_amount}}", "{{/by_dollar_amount}}"), "more than 2 sections inside"},
        {"\n{{=<% %>=}}", "changes the marks of its tags in line 2."},
        {"{{#distrib}}{{> dtitle}}{{/distrib}}", "unknown field: \"dtitle\""},
        {rows + std::string(700'000, 'x') + row_end, "more than 20 MB"},
        {rows + rows + std::string(23'000, 'x') + row_end + row_end, "more than 20 MB"},
        {rows + nested(1'000, "", rows + row_end + rows + row_end) + row_end, "more than 20 MB"},
        {rows + nested(9'000, "", "{{{distrib.dsubtitle}}}{{distrib.dsubtitle}}") + row_end,
         "more than 20 MB"},
        {nested(9, "<table><tr><td>", "</table>"), "more than 8 tables inside"},
        {nested(5'000, "<TABLE><tr><td><!--</table>-->", ""), "more than 8 tables inside"},
        {nested(50'000, "<ol>", "</ol>"), "more than 100 elements inside"},
        {nested(20'000, "<b></q><I>", ""), "more than 100 elements inside"},
        {nested(199'000, "<div>", ""), "more than 100 elements inside"},
        {nested(25'001, "<p>x<br>", ""), "more than 50,000 elements"},
        {rows + nested(3'500, "", "<hr>x") + row_end, "more than 50,000 elements"},
        {"<img src='/dev/zero'>", "\"/dev/zero\": it is not in the program folder"},
        {"<img src='../note.png'>", "\"../note.png\": it is not in"},
        {"<img src='link.png'>", "\"link.png\": it is not in"},
        {"<img src=':/icons/next.svg'>", "\":/icons/next.svg\": it is not in"},
        {"<img src='file:note.png'>", "\"file:note.png\": it is not in"},
        {"<img src='http://localhost/a.png'>", "it is not in"},
        {"<img src='result:charts'>", "\"result:charts\": it is not in"},
        {"<img src='data:image/png;base64,AAAA'>", "it is not in"},
        {"<img src='pipe.png'>", "\"pipe.png\": it is not a file"},
        {"<img>", "\"\": it is not in"},
        {"{{#schedule}}\n{{/schedule}}<img src='none.png'>", "\"none.png\": it is missing in line 2."},
        {"<img src='large.png'>", "\"large.png\": it is larger than 10 MB"},
        {"<img src='note.png'>", "\"note.png\": it is no PNG"},
        {"<img src='drawing.svg'>", "\"drawing.svg\": it is no PNG"},
        {"<p style='background-image: url(/dev/zero)'>x", "it is not in"},
        {"<table background='pipe.png'><tr><td>x", "it is not a file"},
        {"<link rel='stylesheet' href='/dev/zero' type='text/css'><p>x", "it is not in"},
        {"<style>@import url(pipe.png);</style><p>x", "it is not a file"},
        {std::string("\0\1\2", 3), "is not a text"},
        {"\xff\xfe", "is not a text"},
    };
    for (const auto& [text, fault] : cases) {
        try {
            own(text);
            ADD_FAILURE() << "accepted: " << text.substr(0, 100);
        } catch (const PrintError& error) {
            EXPECT_NE(std::string(error.what()).find(fault), std::string::npos) << error.what();
            EXPECT_NE(std::string(error.what()).find("own.rpt"), std::string::npos) << error.what();
        }
    }
    EXPECT_THROW(fill_template("/dev/zero", database), PrintError);
    EXPECT_THROW(fill_template(folder.path() / "no.rpt", database), PrintError);
}

TEST_F(Reports, UseImagesBesideTheirTemplate) {
    QImage logo(40, 30, QImage::Format_RGB32);
    logo.fill(Qt::red);
    ASSERT_TRUE(logo.save(to_qt((folder.path() / "a logo.png").string())));
    std::filesystem::create_symlink("a logo.png", folder.path() / "link.png");
    std::ofstream(folder.path() / "own.css") << "p { background-image: url(link.png) }";
    std::ofstream(folder.path() / "own.rpt")
        << "<html><head><link rel='stylesheet' href='own.css' type='text/css'></head><body>"
        << nested(8, "<table><tr><td>", "</table>")
        << "{{#distrib}}{{#schedule}}<p>{{number}}</p>{{/schedule}}{{/distrib}}"
        << "<img src='a%20logo.png'></body></html>";
    const Report report = fill_template(folder.path() / "own.rpt", database);
    // Read once: what happens to the files afterwards changes nothing.
    std::filesystem::remove(folder.path() / "a logo.png");
    const QVariant image = report->resource(QTextDocument::ImageResource, QUrl(u"a%20logo.png"_s));
    EXPECT_EQ(image.value<QImage>(), logo);
    EXPECT_EQ(report->lastBlock().previous().blockFormat().background().textureImage().size(),
              logo.size());
}

// The office's own words are taken from its page, above and below a rule, and filled like a template.
TEST_F(Reports, TheOfficeSpeaksForItself) {
    const auto words = [&](const std::string& html) {
        std::ofstream(folder.path() / "office.html") << html;
        ReportValues result;
        result.participant = "Ann";
        add_office_words(result, folder.path() / "office.html", database);
        return result.office_above + '|' + result.office_next;
    };
    EXPECT_EQ(words("<html><BODY class='x'>a <hr size=1>{{result.participant}}</body></html>"),
              "a |Ann");
    EXPECT_EQ(words("555-0100"), "|555-0100");
    EXPECT_THROW(words("<img src='/etc/seal.png'>"), PrintError);
}

// Readers of a PDF find its parts and years, and copy its letters.
TEST_F(Reports, PdfsHaveAnOutlineTheirLanguageAndNoLigatures) {
    PrintJob job{.title = u"Job"_s, .file_name = u"File"_s};
    job.reports = {
        own_report("<title>One</title><p>x</p><p style='margin-top: 96px'><a name='2027'>y</a>", {}),
        own_report("<title>Two</title><p>z</p>", {})};
    const QByteArray pdf = pdf_of(job, paper_of(job));
    EXPECT_EQ(pdf, pdf_of(job, paper_of(job))) << "no time of day";
    for (const char* part : {"/Lang (en-US)", "/DisplayDocTitle true", "/Title (One)", "/Title (2027)",
                             "/Title (Two)", "/Type /Page >>", "/Count -1"}) {
        EXPECT_TRUE(pdf.contains(part)) << part;
    }
    // The head ends 56 points below the edge; a line of 10 points and 72 points are above the second.
    static const QRegularExpression place(u"/XYZ null ([\\d.]+) null \\][^>]*/Title \\(2027\\)"_s);
    const double top = place.match(QString::fromLatin1(pdf)).captured(1).toDouble();
    EXPECT_NEAR(top, 792.0 - 56.0 - 14.0 - 72.0, 10.0);
    const QFontMetricsF metrics(theme::paper_font(10.0));
    EXPECT_NEAR(metrics.horizontalAdvance(u"ffi"_s),
                2 * metrics.horizontalAdvance(u"f"_s) + metrics.horizontalAdvance(u"i"_s), 0.5);
}

// A device that takes no pages, as a printer that has gone.
TEST_F(Reports, DeviceThatRefusesIsAnError) {
    QPdfWriter nowhere(u"/no/such/folder/report.pdf"_s);
    EXPECT_THROW(draw_reports({shipped("lumpsum.rpt")}, nowhere), PrintError);
}

// The heading of a long table is on each of its pages, what follows it on the last one.
TEST_F(Reports, LongTablesAreFollowedByWhatTheirTemplateSays) {
    store(database, LevelPaymentSchedule({5000.0, 2026y / 11 / 15, 12, 6.0, 80.0}, 100), {});
    PageWords words;
    const Report report = own_report(
        "<table cellspacing='0'><thead><tr><th>heading</th></tr></thead>{{#schedule}}<tr><td>{{number}}"
        "</td></tr>{{/schedule}}</table><p>after</p>",
        {});
    draw_reports({report}, words);
    ASSERT_GE(words.pages.size(), 2U);
    for (const auto& page : words.pages) {
        const QString text = page_text(page);
        EXPECT_EQ(text.count(u"heading"_s), 1);
        EXPECT_EQ(text.count(u"after"_s), &page == &words.pages.back() ? 1 : 0);
    }
}

TEST_F(Reports, ReportsFollowEachOtherOnNewPages) {
    QByteArray pdf;
    QBuffer buffer(&pdf);
    ASSERT_TRUE(buffer.open(QIODevice::WriteOnly));
    {
        QPdfWriter writer(&buffer);
        const Report summary = shipped("partial.rpt");
        EXPECT_EQ(summary->metaInformation(QTextDocument::DocumentTitle),
                  u"Partial Lump Sum Payments"_s);
        draw_reports({summary, shipped("schedule.rpt"), summary}, writer);
    }
    EXPECT_EQ(pdf.count("/Type /Page\n"), 5);
}

}  // namespace

}  // namespace kelvar::test
