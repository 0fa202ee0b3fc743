// All that the program says and prints of eight scenarios, compared with what was read and approved:
// tests/approved has the sentences of the screens, their tables as CSV, and the words of every page
// with the places where they stand, in millimetres from the margins.
//
// With KELVAR_APPROVE in the environment the files are written instead (./dev approve).

#include <QAbstractItemModel>
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QProcess>
#include <QRegularExpression>
#include <QTableView>
#include <algorithm>
#include <filesystem>
#include <set>

#include "engine/choices.h"
#include "engine/comparison.h"
#include "output/report/page_painter.h"
#include "output/report/report.h"
#include "output/report/report_templates.h"
#include "output/result/printed_values.h"
#include "tests/support/page_words.h"
#include "tests/support/ui_harness.h"
#include "widgets/table_text.h"
#include "widgets/text.h"

namespace kelvar::test {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

struct Choices {
    const char* name;
    Date today;
    Scenario scenario;
};

void PrintTo(const Choices& choices, std::ostream* out) {
    *out << choices.name;
}

// The account is paid from `month` of `year` on.
Scenario account(Date birth, double value, std::int16_t month, std::int16_t year,
                 std::vector<double> rates) {
    return {.birth_date = birth,
            .first_pay_month = month,
            .first_pay_year = year,
            .method = lump_sum,
            .present_value = value,
            .selected_rates = std::move(rates)};
}

// At an age with its divisor in the tables, of which the sum is `until`.
Scenario paid(Scenario scenario, std::int16_t frequency, LengthOption length, std::int16_t number,
              double amount, std::int16_t age, double until) {
    scenario.method = periodic_payments;
    scenario.frequency = frequency;
    scenario.length_option = length;
    scenario.number_of_payments = number;
    scenario.fixed_amount = amount;
    scenario.lookup_age = age;
    scenario.life_expectancy_age = until;
    return scenario;
}

Scenario after_lump_sum(Scenario scenario, double amount, std::int16_t month, std::int16_t year) {
    scenario.method = partial_lump_sum;
    scenario.partial_amount = amount;
    scenario.scenario_month = month;
    scenario.scenario_year = year;
    return scenario;
}

Scenario with_spouse(Scenario scenario, Date birth, std::int16_t age) {
    scenario.joint_life = true;
    scenario.spouse_birth_date = birth;
    scenario.spouse_lookup_age = age;
    return scenario;
}

// Figures that are not round, days at the ends of months, and all that stands in some reports only.
std::vector<Choices> all_choices() {
    const Date today = 2026y / 11 / 22;
    const Scenario older = account(1951y / 10 / 9, 318'440.17, 3, 2027, {5.0, 6.0});
    const Scenario middle = account(1958y / 2 / 1, 250'000.0, 3, 2027, {4.0, 6.0, 9.0});
    const Scenario small = account(1957y / 8 / 20, 48'000.0, 11, 2026, {0.0, 5.0});
    const Scenario large = account(1960y / 1 / 31, 500'000.0, 2, 2027, {8.0, 6.0});
    const Scenario falling = account(1960y / 6 / 15, 40'000.0, 2, 2027, {-3.0, 4.0});
    const Scenario lasting = account(1950y / 6 / 15, 250'000.0, 7, 2020, {5.0, 8.0});
    return {
        {"lump_sum", today, account(1961y / 5 / 3, 318'440.17, 3, 2027, {4.0, 6.5, 8.0})},
        {"number_from_this_month", 2026y / 11 / 30,
         paid(small, 12, by_number_of_payments, 18, 0, 69, 88.6)},
        {"amount", today, paid(middle, 2, by_dollar_amount, 0, 12'000.0, 69, 88.6)},
        {"life_expectancy", today, paid(older, 4, by_life_expectancy, 98, 0, 75, 99.6)},
        {"joint_life", today,
         with_spouse(paid(older, 1, by_life_expectancy, 25, 0, 75, 100.3), 1962y / 12 / 25, 64)},
        {"partial_number", today,
         after_lump_sum(paid(large, 12, by_number_of_payments, 15, 0, 67, 88.2), 125'000.5, 11, 2027)},
        {"partial_amount_below_zero", 2027y / 1 / 31,
         after_lump_sum(paid(falling, 4, by_dollar_amount, 0, 2'500.0, 66, 88.0), 10'000.0, 3, 2027)},
        {"long_joint_life", 2020y / 1 / 15,
         with_spouse(paid(lasting, 12, by_life_expectancy, 828, 0, 70, 139.0), 1980y / 3 / 1, 40)},
    };
}

// Where there are more than `most`, only the first and the last.
QStringList ends_of(const QStringList& lines, qsizetype most) {
    const qsizetype kept = most / 2;
    return lines.size() <= most
               ? lines
               : lines.first(kept) + QStringList{u"... %1 more"_s.arg(lines.size() - most)} +
                     lines.last(kept);
}

class Approved : public UiTest, public ::testing::WithParamInterface<Choices> {
public:
    // Lines break where they do with the font that the packages ask for, whatever this desktop has.
    Approved() {
        QFont font = usual_;
        font.setFamily(u"DejaVu Sans"_s);
        QApplication::setFont(font);
    }
    ~Approved() override { QApplication::setFont(usual_); }

    void add(const QString& heading, const QString& text) {
        all_ += u"== "_s + heading + u'\n' + text + u"\n\n"_s;
    }
    // The labels that the screen shows, by their names.
    void add_labels() {
        QStringList texts;
        for (const QLabel* label : window->visible_screen()->findChildren<QLabel*>()) {
            if (label->isVisible() && !label->objectName().isEmpty() && !label->text().isEmpty()) {
                texts << label->objectName() + u": "_s + label->text();
            }
        }
        add(screen_name(), texts.join(u'\n'));
    }
    void add_table(const char* grid) {
        const QString text = QString::fromUtf8(csv(*find<QTableView>(grid)->model())).remove(u'\r');
        add(QString::fromLatin1(grid), ends_of(text.trimmed().split(u'\n'), 60).join(u'\n'));
    }
    void add_explanations() {
        auto* grid = find<QTableView>("grddist");
        const int last = grid->model()->rowCount() - 1;
        QStringList texts;
        for (const int row : std::set{0, 1, 2, 3, 4, last / 2, last - 1, last}) {
            grid->setCurrentIndex(grid->model()->index(row, 0));
            texts << text_of("lblexplain");
        }
        add(u"lblexplain"_s, texts.join(u'\n'));
    }
    // What Print makes: the size of its pages, and what is drawn on them.
    void add_pages(const std::vector<std::string>& templates, ReportValues values) {
        save_as = to_qt((folder.path() / "out.pdf").string());
        click("cmdprint");
        QFile file(save_as);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QString pdf = QString::fromLatin1(file.readAll());
        static const QRegularExpression size(u"/MediaBox \\[ 0 0 ([\\d.]+) ([\\d.]+)"_s);
        const QRegularExpressionMatch box = size.match(pdf);
        const double width = box.captured(1).toDouble(), height = box.captured(2).toDouble();
        add(u"printed"_s,
            u"%1 pages of %2 x %3 points"_s.arg(pdf.count(u"/Type /Page >>"_s)).arg(width).arg(height));
        PageWords device;
        device.setPageSize(QPageSize(QPageSize::Letter));
        device.setPageOrientation(width > height ? QPageLayout::Landscape : QPageLayout::Portrait);
        device.setPageMargins(page_margins, QPageLayout::Point);
        if (values.chart) {
            values.chart = [&, paint = values.chart](QPainter& painter, const QRectF& area) {
                device.in_chart = true;
                paint(painter, area);
                device.in_chart = false;
            };
        }
        std::vector<Report> reports;
        reports.reserve(templates.size());
        for (const std::string& name : templates) {
            reports.push_back(fill_template(std::filesystem::path(KELVAR_REPORTS) / name,
                                            module->database(), values));
        }
        draw_reports(reports, device);
        QStringList pages;
        for (const auto& page : device.pages) {
            pages << u"-- page %1\n"_s.arg(pages.size() + 1) + page_text(page);
        }
        add(u"pages"_s, ends_of(pages, 6).join(u'\n'));
    }
    // The first and the last rate as if they had been kept, and the first one after a fall.
    void add_choices() {
        const std::vector<double>& rates = module->scenario.selected_rates;
        const Choice first{module->scenario, rates.front()};
        const kelvar::Choices kept = compare_choices({first, {module->scenario, rates.back()}}, today);
        std::vector<ChosenResult> rows = kept.results;
        rows.push_back(compare_choices({after_fall(first)}, today).results.front());
        add_pages({"choices.rpt"}, printed_choices(module->scenario, today, rows, even_texts(kept)));
    }
    // Compares, or writes.
    void end() {
        const QString name = QString::fromLatin1(GetParam().name);
        const QString approved = QStringLiteral(KELVAR_APPROVED) + u'/' + name + u".txt"_s;
        QFile file(approved);
        if (qEnvironmentVariableIsSet("KELVAR_APPROVE")) {
            ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(all_.toUtf8()) > 0);
            return;
        }
        QProcess diff;
        diff.start(u"diff"_s, {u"-U0"_s, u"--label=approved"_s, u"--label=now"_s, approved, u"-"_s});
        diff.write(all_.toUtf8());
        diff.closeWriteChannel();
        ASSERT_TRUE(diff.waitForFinished());
        if (diff.exitCode() != 0) {
            ADD_FAILURE() << "Read what differs, then ./dev approve\n" << diff.readAll().toStdString();
        }
    }

private:
    const QFont usual_ = QApplication::font();
    QString all_;
};

TEST_P(Approved, ScreensTablesAndPages) {
    for (const auto& report : std::filesystem::directory_iterator(KELVAR_REPORTS)) {
        std::filesystem::copy(report, folder.path());
    }
    today = GetParam().today;
    go_to_menu();
    Scenario& scenario = module->scenario;
    Scenario chosen = GetParam().scenario;
    chosen.fee_amount = scenario.fee_amount;
    chosen.screen_width = scenario.screen_width;
    chosen.screen_height = scenario.screen_height;
    scenario = chosen;
    window->show(scenario.method == lump_sum            ? ScreenId::frmlump
                 : scenario.method == periodic_payments ? ScreenId::frmperio
                                                        : ScreenId::frmparti);
    settle();
    add_labels();
    if (scenario.method == lump_sum) {
        add_table("grdvalues");
    } else {
        add_explanations();
        add_table("grddist");
        click("optview_1");
        add(u"years"_s, text_of("lblledger") + u'\n' + text_of("lblminimum"));
        add_table("grdyear");
    }
    const Projection projection = project(scenario, scenario.selected_rates.front(), today);
    add_pages(report_templates(scenario.method, scenario.length_option, {.years = true}),
              printed_values(scenario, projection, module->database()));
    if (scenario.method != lump_sum) {
        click("cmdcompare");
        add_labels();
        add_table("grdcompare");
        add_pages({"compare.rpt"}, printed_comparison(scenario, compare(scenario, today)));
        click("chkfall");
        click("chkzero");
        choose("cmbprices", u"3%"_s);
        add_table("grdcompare");
        add(u"lblprices"_s, text_of("lblprices"));
        add_choices();
    }
    end();
}

INSTANTIATE_TEST_SUITE_P(Pages, Approved, ::testing::ValuesIn(all_choices()),
                         [](const auto& choices) { return std::string(choices.param.name); });

}  // namespace

}  // namespace kelvar::test
