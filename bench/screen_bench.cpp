// What a user waits for: the start, the longest real schedule and all that can be done with it. On the
// offscreen platform unless another is set.
#include <benchmark/benchmark.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QCoreApplication>
#include <QDialog>
#include <QEvent>
#include <QProcess>
#include <QTableView>
#include <QTimer>
#include <chrono>
#include <filesystem>

#include "engine/projection.h"
#include "main/program.h"
#include "output/report/print_job.h"
#include "output/report/report.h"
#include "output/report/report_templates.h"
#include "output/result/printed_values.h"
#include "shell/main_window.h"
#include "shell/screen.h"
#include "tests/support/temporary_program_folder.h"
#include "widgets/table_text.h"

namespace kelvar {

namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

constexpr int longest = 828;  // monthly payments from age 16 on, divisor 69

void start(benchmark::State& state, const char* program) {
    const test::TemporaryProgramFolder folder;
    const QStringList arguments{QString::fromStdString(folder.path().string())};
    for (auto _ : state) {
        if (QProcess::execute(QString::fromLatin1(program), arguments) != 0) {
            state.SkipWithError("the window did not open");
        }
    }
}

// The whole program with a result screen open on the longest schedule, at four rates.
struct OpenResult {
    explicit OpenResult(Method method = periodic_payments, ScreenId result = ScreenId::frmperio)
        : program(folder.path(), [] { return Date{2020y / 1 / 15}; }) {
        window.add_modal(ScreenId::frmclaim, [](QWidget* parent) {  // nobody is there to close it
            auto* note = new QDialog(parent);
            QTimer::singleShot(0, note, &QDialog::accept);
            return note;
        });
        program.open();
        Scenario& scenario = module.scenario;
        scenario.birth_date = 2003y / 6 / 15;
        scenario.present_value = 250000.0;
        scenario.first_pay_month = 7;
        scenario.first_pay_year = 2020;
        scenario.scenario_month = 8;
        scenario.scenario_year = 2020;
        scenario.partial_amount = 50000.0;
        scenario.method = method;
        scenario.frequency = 12;
        scenario.length_option = by_life_expectancy;
        scenario.number_of_payments = longest;
        scenario.selected_rates = {5.0, 6.0, 7.0, 8.0};
        window.show(result);
        QCoreApplication::processEvents();
    }

    test::TemporaryProgramFolder folder;
    Program program;
    MainWindow& window = program.window();
    Module1& module = program.module();
};

// Picking another rate: computes, stores and paints.
void another_rate_until_painted(benchmark::State& state) {
    OpenResult open;
    auto* cmbrate = open.window.visible_screen()->findChild<QComboBox*>(u"cmbrate"_s);
    for (auto _ : state) {
        cmbrate->setCurrentIndex(cmbrate->currentIndex() == 0 ? 1 : 0);
        emit cmbrate->activated(cmbrate->currentIndex());
        open.window.repaint();
        QCoreApplication::processEvents();
    }
    state.counters["payments"] = static_cast<double>(open.module.database().schedule().RecordCount());
}

// Going down the list: each payment is explained below it.
void next_row_until_painted(benchmark::State& state) {
    OpenResult open;
    auto* payments = open.window.visible_screen()->findChild<QTableView*>(u"grddist"_s);
    int row = 0;
    for (auto _ : state) {
        row = (row + 1) % payments->model()->rowCount();
        payments->selectRow(row);
        open.window.repaint();
    }
}

// From the payments to the years of them, and the ledger below.
void years_until_painted(benchmark::State& state) {
    OpenResult open;
    auto* screen = open.window.visible_screen();
    auto* payments = screen->findChild<QAbstractButton*>(u"optview_0"_s);
    auto* years = screen->findChild<QAbstractButton*>(u"optview_1"_s);
    for (auto _ : state) {
        years->click();
        open.window.repaint();
        state.PauseTiming();
        payments->click();
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
}

void payments_to_csv(benchmark::State& state) {
    OpenResult open;
    auto* payments = open.window.visible_screen()->findChild<QTableView*>(u"grddist"_s);
    double bytes = 0.0;
    for (auto _ : state) {
        bytes = static_cast<double>(csv(*payments->model()).size());
    }
    state.counters["bytes"] = bytes;
}

// From Next on the rate screen to the painted result, the note aside.
void result_until_painted(benchmark::State& state, Method method, ScreenId result) {
    OpenResult open(method, result);
    for (auto _ : state) {
        state.PauseTiming();
        open.window.close(result);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
        state.ResumeTiming();
        open.window.show(result);
        open.window.repaint();
    }
}

void joint_table_until_painted(benchmark::State& state) {
    OpenResult open;
    open.window.show(ScreenId::frmdist3);
    auto* screen = open.window.visible_screen();
    auto* joint = screen->findChild<QTableView*>(u"grdlife1"_s);
    for (auto _ : state) {
        joint->parentWidget()->show();
        QCoreApplication::processEvents();
        joint->repaint();
        state.PauseTiming();
        joint->parentWidget()->hide();
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
    state.counters["rows"] = joint->model()->rowCount();
}

// From the work tables and the projection to a finished PDF in memory.
void reports_to_pdf(benchmark::State& state, const std::vector<std::string>& templates) {
    OpenResult open;
    const Scenario& scenario = open.module.scenario;
    const Projection projection = project(scenario, 5.0, open.module.today());
    double bytes = 0.0;
    for (auto _ : state) {
        PrintJob job;
        const ReportValues result = printed_values(scenario, projection, open.module.database());
        for (const std::string& name : templates) {
            job.reports.push_back(fill_template(std::filesystem::path(KELVAR_REPORTS) / name,
                                                open.module.database(), result));
        }
        bytes = static_cast<double>(pdf_of(job, paper_of(job)).size());
    }
    state.counters["bytes"] = bytes;
}

// Monthly over life from 16 on, by the rules, as often as can be kept.
std::vector<Entries> six_choices() {
    std::vector<Entries> choices(most_choices);
    for (std::size_t i = 0; i < choices.size(); ++i) {
        choices[i] = {.birth_date = Date{std::chrono::year{2003} / 6 / 1},
                      .present_value = 250000.0 + 1000.0 * static_cast<double>(i),
                      .first_pay_month = 7,
                      .first_pay_year = 2020,
                      .method = periodic_payments,
                      .frequency = 12,
                      .length_option = by_life_expectancy,
                      .selected_rates = std::vector{5.0},
                      .shown_rate = 5.0};
    }
    return choices;
}

// A screen that a result leads to.
void opened_until_painted(benchmark::State& state, ScreenId id) {
    OpenResult open;
    open.module.visit.choices = six_choices();
    for (auto _ : state) {
        open.window.show(id);
        open.window.repaint();
        state.PauseTiming();
        open.window.close(id);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
}

BENCHMARK_CAPTURE(start, text_window, KELVAR_TEXT_WINDOW)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(start, title_screen, KELVAR_TITLE_WINDOW)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(another_rate_until_painted)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(next_row_until_painted)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(years_until_painted)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(payments_to_csv)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(result_until_painted, lump_sum, lump_sum, ScreenId::frmlump)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(result_until_painted, partial, partial_lump_sum, ScreenId::frmparti)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(joint_table_until_painted)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(opened_until_painted, chart, ScreenId::frmcperi)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(opened_until_painted, comparison, ScreenId::frmcompare)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(opened_until_painted, choices, ScreenId::frmchoices)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(reports_to_pdf, payments, {"periodic.rpt", "schelife.rpt"})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(reports_to_pdf, everything,
                  report_templates(periodic_payments, by_life_expectancy, {.years = true}))
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace

}  // namespace kelvar
