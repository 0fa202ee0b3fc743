#include "statements/program/statement_pdfs.h"

#include <QHashSeed>
#include <QRegularExpression>
#include <algorithm>
#include <utility>

#include "core/operating_system.h"
#include "core/whole_file.h"
#include "engine/store.h"
#include "output/report/page_painter.h"
#include "output/report/print_job.h"
#include "output/report/report.h"
#include "output/result/printed_values.h"
#include "shell/saved_file.h"
#include "widgets/text.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

std::unique_ptr<Application> without_window() {
    static int argc = 1;
    static char name[] = "kelvar-statements";
    static char* argv[] = {name, nullptr};
    QHashSeed::setDeterministicGlobalSeed();  // in whose order fonts get into a file
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Else the toolkit makes a folder for the desktop's sockets in /tmp.
    qputenv("TMPDIR", "/dev/null");
    // What it has to say is about a desktop that need not be there.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    auto application = std::make_unique<Application>(argc, argv);
    theme::apply(*application);
    return application;
}

std::filesystem::file_time_type newest_of(const std::filesystem::path& folder,
                                          const std::filesystem::path& table) {
    auto newest = std::max(last_write_time(table), last_write_time(running_program()));
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        // Tables and results are no part of a statement, even where somebody keeps them there.
        if (entry.is_regular_file() && entry.path().extension() != ".csv") {
            newest = std::max(newest, entry.last_write_time());
        }
    }
    return newest;
}

}  // namespace

std::vector<std::string> older_statements(const std::filesystem::path& folder,
                                          const std::filesystem::path& program_folder,
                                          const std::filesystem::path& table) {
    static const QRegularExpression of_a_line(u" \\(line \\d+\\)\\.pdf$"_s);
    const auto newest = newest_of(program_folder, table);
    std::vector<std::string> older;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::string name = entry.path().filename().string();
        if (to_qt(name).contains(of_a_line) && entry.last_write_time() <= newest) {
            older.push_back(name);
        }
    }
    std::ranges::sort(older);
    return older;
}

StatementPdfs::StatementPdfs(Wanted wanted)
    : wanted_(std::move(wanted)),
      application_(without_window()),
      newest_(newest_of(wanted_.program_folder, wanted_.table)) {}

bool StatementPdfs::is_kept(const std::filesystem::path& file, Date today) const {
    std::error_code none;
    const auto written = last_write_time(file, none);
    return wanted_.keep_newer && !none && written > newest_ && day_of_writing(file) == today;
}

void StatementPdfs::write(const Participant& participant, const std::vector<Projection>& projections,
                          Database& database) const {
    const Scenario& chosen = participant.scenario;
    const Date today = projections.empty() ? no_date : projections.front().today;
    const QString name =
        proposed_name(participant.name) + u" (line %1)"_s.arg(qulonglong{participant.line});
    const std::filesystem::path file = wanted_.folder / (name + u".pdf"_s).toStdString();
    PrintJob job;
    for (const Projection& projection : projections) {
        if (projection.outcome != Outcome::complete) {
            continue;
        }
        if (job.reports.empty() && is_kept(file, today)) {
            return;
        }
        Scenario scenario = chosen;
        take_over(scenario, projection);
        database.empty_work_tables();
        store(database, projection.schedule, heading_of(scenario, projection));
        add_reports(job, wanted_.program_folder, database,
                    report_templates(scenario.method, scenario.length_option, wanted_.parts),
                    printed_values(scenario, projection, database));
        if (!job.missing.empty()) {
            throw PrintError(job.missing);
        }
    }
    if (job.reports.empty()) {
        return;
    }
    job.title = job.reports.front()->metaInformation(QTextDocument::DocumentTitle);
    job.file_name = name;
    write_whole(wanted_.program_folder, file, pdf_of(job, paper_of(job)).toStdString());
}

}  // namespace kelvar
