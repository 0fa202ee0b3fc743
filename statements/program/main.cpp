// Statements for a whole plan: a table of participants as CSV in, results as CSV and PDF files out.
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/operating_system.h"
#include "core/reference_data.h"
#include "core/whole_file.h"
#include "statements/jobs.h"
#include "statements/program/statement_pdfs.h"
#include "statements/results.h"

namespace {

using namespace kelvar;
using std::filesystem::path;

constexpr int all_accepted = 0;
constexpr int some_refused = 1;
constexpr int failed = 2;

struct Options {
    std::string table;
    std::string results = "results.csv";
    std::string payments;
    std::string pdfs;
    std::string program_folder = running_program().parent_path().string();
    bool years = false;
    bool schedule = false;
    bool resume = false;
    int jobs = 1;
};

void describe(CLI::App& app, Options& options) {
    constexpr int most_jobs = 256;
    app.add_option("table", options.table,
                   "Participants as CSV, one line each; see kelvar-statements(1)")
        ->required();
    app.add_option("-o,--results", options.results, "Where the results go")->capture_default_str();
    app.add_option("--schedules", options.payments, "Also writes all payments to this file, as CSV");
    auto* pdf = app.add_option("--pdf", options.pdfs,
                               "Also writes a statement for each participant into this folder");
    app.add_flag("--years", options.years, "Statements have the years too")->needs(pdf);
    app.add_flag("--schedule", options.schedule, "Statements have all payments too")->needs(pdf);
    app.add_flag("--resume", options.resume,
                 "Keeps statements of today that are newer than all that they are made of");
    app.add_option("-j,--jobs", options.jobs, "How many processes share the work")
        ->check(CLI::Range(1, most_jobs))
        ->capture_default_str();
    app.add_option("--program", options.program_folder,
                   "Folder with the tables and report templates, instead of the usual one")
        ->take_last();  // the packages' launcher names one, too
}

// Nothing that is read is written over, and no file twice.
void require_different_files(const Options& options) {
    const auto same = [](const std::string& one, const std::string& other) {
        return !one.empty() && !other.empty() &&
               std::filesystem::weakly_canonical(one) == std::filesystem::weakly_canonical(other);
    };
    if (same(options.table, options.results) || same(options.table, options.payments) ||
        same(options.results, options.payments)) {
        throw InputError("The table, --results and --schedules must be different files.");
    }
}

// For its reader only; the statements are about people.
void make_folder(const path& folder) {
    std::error_code error;
    if (std::filesystem::create_directories(folder, error)) {
        permissions(folder, std::filesystem::perms::owner_all, error);
    }
    if (error) {
        throw FileError(
            fmt::format("The folder {} cannot be made: {}.", folder.string(), error.message()));
    }
}

MakeLine worker(const Options& options, Date today, const CsvRecord& header) {
    const auto columns = std::make_shared<const Columns>(header, options.table);
    const std::shared_ptr<Database> database =
        Database::copy_of(path(options.program_folder) / "vestoraq.mdb");
    check_reference_data(*database);
    std::shared_ptr<const StatementPdfs> pdfs;
    if (!options.pdfs.empty()) {
        const PrintedParts parts{.years = options.years, .payments = options.schedule};
        pdfs = std::make_shared<const StatementPdfs>(StatementPdfs::Wanted{
            options.program_folder, options.pdfs, parts, options.resume, options.table});
    }
    return [=, wants_payments = !options.payments.empty()](const CsvRecord& record) {
        const Participant participant = columns->read(record, *database, today);
        const std::vector<Projection> projections = projections_of(participant, today);
        if (pdfs) {
            pdfs->write(participant, projections, *database);
        }
        return Made{result_lines(participant, projections),
                    wants_payments ? payment_lines(participant, projections) : "",
                    !participant.refusal.empty()};
    };
}

// On a terminal only, five times a second.
class Progress {
public:
    void count(bool refused) {
        ++lines_;
        refused_ += refused ? 1 : 0;
        const auto now = std::chrono::steady_clock::now();
        if (terminal_ && now - shown_ >= std::chrono::milliseconds(200)) {
            shown_ = now;
            show("");
        }
    }
    // What whoever does not look at the exit code has to know.
    void end(const std::string& results) const {
        if (terminal_) {
            show("\n");
        }
        if (refused_ > 0) {
            fmt::print(stderr, "{} of {} lines were refused; {} says why.\n", refused_, lines_,
                       results);
        }
    }
    bool any_refused() const { return refused_ > 0; }

private:
    void show(const char* end) const {
        fmt::print(stderr, "\r{} lines, {} refused{}", lines_, refused_, end);
    }

    const bool terminal_ = isatty(STDERR_FILENO) == 1;
    std::size_t lines_ = 0;
    std::size_t refused_ = 0;
    std::chrono::steady_clock::time_point shown_{};
};

int run(const Options& options) {
    require_different_files(options);
    if (!options.pdfs.empty()) {
        make_folder(options.pdfs);
    }
    WholeFile results(options.program_folder, options.results);
    results.write(results_header());
    std::optional<WholeFile> payments;
    if (!options.payments.empty()) {
        payments.emplace(options.program_folder, options.payments);
        payments->write(payments_header());
    }
    Progress progress;
    share_lines(
        options.table, options.jobs,
        [&, today = system_date()](const CsvRecord& header) { return worker(options, today, header); },
        [&](const Made& made) {
            results.write(made.results);
            if (payments) {
                payments->write(made.payments);
            }
            progress.count(made.refused);
        });
    if (payments) {
        payments->commit();
    }
    results.commit();
    progress.end(options.results);
    if (!options.pdfs.empty()) {
        const std::vector<std::string> older =
            older_statements(options.pdfs, options.program_folder, options.table);
        if (!older.empty()) {
            fmt::print(stderr, "In {}, older than the table or what statements are made of: {}.\n",
                       options.pdfs, fmt::join(older, ", "));
        }
    }
    return progress.any_refused() ? some_refused : all_accepted;
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app("Statements for a whole plan: what becomes of each participant's account",
                 "kelvar-statements");
    try {
        Options options;
        describe(app, options);
        app.parse(argc, argv);
        return run(options);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? all_accepted : failed;
    } catch (const Interrupted& interrupted) {
        std::signal(interrupted.signal, SIG_DFL);
        std::raise(interrupted.signal);
    } catch (const std::exception& error) {
        fmt::print(stderr, "kelvar-statements: {}\n", error.what());
    }
    return failed;
}
