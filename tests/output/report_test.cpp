#include "output/report.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QPdfWriter>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>
#include <fstream>

#include "core/scenario.h"
#include "engine/store.h"
#include "output/page_painter.h"
#include "output/report_templates.h"
#include "tests/support/temporary_program_folder.h"

namespace kelvar::test {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

TEST(ReportTemplates, FollowMethodAndLength) {
    struct Case {
        int method;
        int length_option;
        std::vector<std::string> templates;
    };
    const Case cases[] = {
        {lump_sum, no_length, {"lumpsum.rpt"}},
        {lump_sum, by_life_expectancy, {"lumpsum.rpt"}},
        {periodic_payments, by_number_of_payments, {"periodic.rpt", "schedule.rpt"}},
        {periodic_payments, by_dollar_amount, {"periodic.rpt", "schefix.rpt"}},
        {periodic_payments, by_life_expectancy, {"periodic.rpt", "schelife.rpt"}},
        {periodic_payments, no_length, {"periodic.rpt", "periodic.rpt"}},
        {periodic_payments, 4, {"periodic.rpt", "periodic.rpt"}},
        {partial_lump_sum, by_number_of_payments, {"partial.rpt", "schedule.rpt"}},
        {partial_lump_sum, by_dollar_amount, {"partial.rpt", "schefix.rpt"}},
        {partial_lump_sum, by_life_expectancy, {"partial.rpt", "schelife.rpt"}},
        {partial_lump_sum, no_length, {"partial.rpt"}},
        {no_method, by_life_expectancy, {}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(report_templates(c.method, c.length_option), c.templates)
            << c.method << ' ' << c.length_option;
    }
}

class Report : public ::testing::Test {
protected:
    // 30 payments of a partial lump sum, with every heading field written.
    Report() {
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

    QString shipped(const char* name) {
        return fill_template(std::filesystem::path(KELVAR_REPORTS) / name, database);
    }
    QString own(const std::string& text) {
        const auto file = folder.path() / "own.rpt";
        std::ofstream(file, std::ios::binary) << text;
        return fill_template(file, database);
    }
    static QString text_of(const QString& html) {
        QTextDocument document;
        document.setHtml(html);
        return document.toPlainText();
    }

    TemporaryProgramFolder folder;
    Database database{folder.database()};
};

TEST_F(Report, SeesFieldsRawAndAsMoney) {
    EXPECT_EQ(own("{{distrib.curvalue}} {{distrib.curvalue_money}}{{distrib.rate}} {{distrib.fee}}"),
              u"250000 $250,000.00 6% $80"_s);
    EXPECT_EQ(own("{{distrib.dtitle}}"), u"Tom &amp; Jerry &lt;Payments&gt;"_s);
    EXPECT_EQ(own("{{#by_number_of_payments}}n{{/by_number_of_payments}}"
                  "{{#by_dollar_amount}}d{{/by_dollar_amount}}{{^by_life_expectancy}}-{{/"
                  "by_life_expectancy}}"),
              u"n-"_s);
    // The first two rows worked out apart with decimal arithmetic.
    EXPECT_TRUE(own("{{#schedule}}{{number}}/{{remaining}} {{Month}} {{Year}} {{startbalance_money}};"
                    "{{/schedule}}")
                    .startsWith(u"1/29 November 2026 $5,000.00;2/28 December 2026 $4,850.65;"_s));
}

// Each template prints what its screen writes and no leftovers of another one.
TEST_F(Report, ShippedTemplatesPrintTheFieldsOfTheirScreen) {
    const QString title = u"Tom & Jerry"_s, subtitle = u"+ Remaining Paid Monthly"_s,
                  partial = u"$1,999.99"_s, fixed = u"$1,234.56"_s, current = u"$250,000.00"_s,
                  start = u"$7,000.50"_s, second = u"November, 2026"_s, total = u"$7,350.11"_s;
    struct Case {
        const char* name;
        QStringList has;
        QStringList has_not;
    };
    const Case cases[] = {
        {"periodic.rpt",
         {title, current, start, total, u"6%"_s, u"$80"_s},
         {subtitle, partial, fixed, second}},
        {"partial.rpt", {title, subtitle, partial, current, start, second, total}, {fixed}},
        {"lumpsum.rpt",
         {current, start, total, u"January, 2026"_s},
         {title, subtitle, partial, fixed, second}},
        {"schedule.rpt", {title, u"$5,000.00"_s, u"$0.00"_s}, {fixed, partial}},
        {"schefix.rpt", {title, fixed, u"$5,000.00"_s, u"$0.00"_s}, {partial}},
        {"schelife.rpt", {title, u"$5,000.00"_s, u"$0.00"_s}, {fixed, partial}},
    };
    for (const Case& c : cases) {
        const QString text = text_of(shipped(c.name));
        for (const QString& part : c.has) {
            EXPECT_TRUE(text.contains(part)) << c.name << " lacks " << part.toStdString();
        }
        for (const QString& part : c.has_not) {
            EXPECT_FALSE(text.contains(part)) << c.name << " has " << part.toStdString();
        }
    }
    database.distrib().Edit();
    database.distrib().set("paylength", std::int64_t{by_dollar_amount});
    database.distrib().Update();
    for (const char* name : {"periodic.rpt", "partial.rpt", "schefix.rpt"}) {
        EXPECT_TRUE(text_of(shipped(name)).contains(fixed)) << name;
    }
}

TEST_F(Report, ScheduleIsATableWithEveryRowUnderAHeadingThatRepeats) {
    for (const char* name : {"schedule.rpt", "schefix.rpt", "schelife.rpt"}) {
        QTextDocument document;
        document.setHtml(shipped(name));
        const auto* table = qobject_cast<QTextTable*>(document.rootFrame()->childFrames().value(0));
        ASSERT_NE(table, nullptr) << name;
        EXPECT_EQ(table->format().headerRowCount(), 1) << name;
        EXPECT_EQ(table->rows(), 1 + 30 + 1) << name;  // heading, payments, total
        EXPECT_EQ(table->cellAt(30, 0).firstCursorPosition().block().text(), u"30"_s) << name;
    }
}

TEST_F(Report, BrokenTemplatesAreNamedWithTheirFault) {
    std::string many_sections;
    for (int i = 0; i < 10'000; ++i) {
        many_sections.insert(0, "{{#distrib}}").append("{{/distrib}}");
    }
    const std::pair<std::string, const char*> cases[] = {
        {"", "is empty"},
        {"  \n\t", "is empty"},
        {"<p>{{distrib.dtitle", "is faulty"},
        {"{{#schedule}}<p>", "is faulty"},
        {"{{/schedule}}", "is faulty"},
        {"{{distrib.curvalu}}", "unknown field: \"distrib.curvalu\""},
        {"{{#schedule}}{{amount}}{{/schedule}}", "unknown field: \"amount\""},
        {"{{> other}}", "unknown field: \"other\""},
        {"{{}}", "unknown field: \"\""},
        {std::string(1'000'001, 'x'), "longer than a million"},
        {many_sections, "too many sections"},
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

// A device that takes no pages, as a printer that has gone.
TEST_F(Report, DeviceThatRefusesIsAnError) {
    QPdfWriter nowhere(u"/no/such/folder/report.pdf"_s);
    EXPECT_THROW(draw_reports({shipped("lumpsum.rpt")}, 2026y / 11 / 21, nowhere), PrintError);
}

TEST_F(Report, ReportsFollowEachOtherOnNewPages) {
    QByteArray pdf;
    QBuffer buffer(&pdf);
    ASSERT_TRUE(buffer.open(QIODevice::WriteOnly));
    {
        QPdfWriter writer(&buffer);
        const QString summary = shipped("partial.rpt");
        EXPECT_EQ(report_title(summary), u"Partial Lump Sum Payments"_s);
        draw_reports({summary, shipped("schedule.rpt"), summary}, 2026y / 11 / 21, writer);
    }
    EXPECT_EQ(pdf.count("/Type /Page\n"), 3);
}

}  // namespace

}  // namespace kelvar::test
