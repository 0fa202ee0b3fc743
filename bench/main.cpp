// Runs all benchmarks and prints one table: each figure with its limit and the raw cost underneath,
// which no program on this machine can go below.
#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "shell/application.h"
#include "widgets/theme.h"

namespace {

// Limit of a row: so many times the raw cost, and so many milliseconds more. 0 and 0: no limit.
struct Row {
    const char* what;
    const char* benchmark;
    const char* raw;
    double times_raw = 0.0;
    double more = 0.0;
};

constexpr const char* no_raw = "";
constexpr const char* commit = "bare_commit_of_one_row/real_time";
constexpr double frame = 16.0;  // milliseconds

constexpr Row rows[] = {
    {"engine: level schedule of 828 payments / its bare pow", "schedule<level>", "bare_powers<level>",
     1.5},
    {"engine: 828 payments of a fixed amount / its bare pow", "schedule<fixed>", "bare_powers<fixed>",
     1.5},
    {"engine: least amount at two rates of 828 payments", "least_amount_at_two_rates", no_raw, 0.0,
     2.0},
    {"engine: six choices of 828 payments compared", "six_choices_compared", no_raw},
    {"compute and store 828 payments / bare commit", "compute_and_store/real_time", commit},
    {"another rate: compute, store, paint 828 payments / bare commit",
     "another_rate_until_painted/real_time", commit, 1.0, frame},
    {"next payment explained and painted", "next_row_until_painted/real_time", no_raw, 0.0, frame},
    {"years of 828 payments shown and painted", "years_until_painted/real_time", no_raw, 0.0, frame},
    {"partial lump sum opened, 828 payments painted / bare commit",
     "result_until_painted/partial/real_time", commit},
    {"lump sum at four rates opened and painted / bare commit",
     "result_until_painted/lump_sum/real_time", commit},
    {"yearly chart of 828 payments opened and painted", "opened_until_painted/chart/real_time", no_raw},
    {"four rates of 828 payments compared and painted", "opened_until_painted/comparison/real_time",
     no_raw, 0.0, 50.0},
    {"six choices of some 820 payments compared and painted", "opened_until_painted/choices/real_time",
     no_raw, 0.0, 60.0},
    {"joint life table of 2,343 rows painted", "joint_table_until_painted/real_time", no_raw},
    {"828 payments to CSV", "payments_to_csv/real_time", no_raw, 0.0, frame},
    {"summary and 828 payments to PDF", "reports_to_pdf/payments/real_time", no_raw, 0.0, 400.0},
    {"summary, years and 828 payments to PDF", "reports_to_pdf/everything/real_time", no_raw, 0.0,
     500.0},
    {"100,000 participants at four rates to results.csv", "statements/results/iterations:1/manual_time",
     no_raw, 0.0, 15'000.0},
    {"a statement of one sheet for each participant", "statements/one_page/iterations:1/manual_time",
     no_raw, 0.0, 1000.0 / 12.0},
    {"start to the title screen / Qt window with a line of text", "start/title_screen/real_time",
     "start/text_window/real_time", 1.5},
};

std::string time_text(double milliseconds) {
    return milliseconds < 1.0 ? fmt::format("{:.1f} us", milliseconds * 1000.0)
                              : fmt::format("{:.1f} ms", milliseconds);
}

// The library names this differently from version 1.8 on.
template <class Run>
std::string failure_of(const Run& run) {
    if constexpr (requires { run.error_occurred; }) {
        return run.error_occurred ? run.error_message : std::string();
    } else {
        return run.skipped != decltype(run.skipped){} ? run.skip_message : std::string();
    }
}

class Table : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (const std::string failure = failure_of(run); !failure.empty()) {
                fmt::print(stderr, "{}: {}\n", run.benchmark_name(), failure);
                continue;
            }
            const double per_second = benchmark::GetTimeUnitMultiplier(run.time_unit);
            const double measured = run.GetAdjustedRealTime() / per_second * 1000.0;
            // The best of the repetitions: whatever else the machine does only adds to the time.
            auto [known, first] = milliseconds_.emplace(run.benchmark_name(), measured);
            known->second = std::min(known->second, measured);
        }
    }

    void Finalize() override {
        fmt::print("| {:<63} | {:>9} | {:>9} | {:>8} |\n", "what / raw cost underneath", "measured",
                   "limit", "raw cost");
        fmt::print("|{:-<65}|{:->11}|{:->11}|{:->10}|\n", "", ":", ":", ":");
        for (const Row& row : rows) {
            print(row);
        }
    }

private:
    void print(const Row& row) const {
        const auto measured = milliseconds_.find(row.benchmark);
        if (measured == milliseconds_.end()) {
            return;  // filtered out
        }
        const auto raw = milliseconds_.find(row.raw);
        const double raw_time = raw == milliseconds_.end() ? 0.0 : raw->second;
        const double limit = row.times_raw * raw_time + row.more;
        fmt::print("| {:<63} | {:>9} | {:>9} | {:>8} |{}\n", row.what, time_text(measured->second),
                   limit > 0.0 ? time_text(limit) : "", raw_time > 0.0 ? time_text(raw_time) : "",
                   limit > 0.0 && measured->second > limit ? " over the limit" : "");
    }

    std::map<std::string, double> milliseconds_;
};

}  // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" KELVAR_DISPLAYS);
    }
    kelvar::Application application(argc, argv);
    kelvar::theme::apply(application);
    std::string repetitions = "--benchmark_repetitions=5";
    std::vector<char*> arguments(argv, argv + argc);
    arguments.insert(arguments.begin() + 1, repetitions.data());  // the user's own come after it
    argc = static_cast<int>(arguments.size());
    benchmark::Initialize(&argc, arguments.data());
    Table table;
    benchmark::RunSpecifiedBenchmarks(&table);
}
