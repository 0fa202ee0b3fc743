// Statements for a whole plan, by the program that makes them, in one process.
#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "core/dates.h"

namespace kelvar {

namespace {

// All methods, frequencies and lengths.
void write_table(const std::filesystem::path& file, int participants, const char* rates) {
    constexpr const char* methods[] = {"periodic", "partial", "periodic", "lump sum"};
    constexpr const char* frequencies[] = {"Monthly", "Monthly", "Quarterly", "Annually",
                                           "Semi-Annually"};
    constexpr const char* lengths[] = {"life expectancy", "number of payments", "dollar amount"};
    const int year = year_of(system_date()) + 1;
    std::ofstream table(file);
    table << "name,birth date,balance,first payment,method,frequency,lump sum,payments "
             "from,length,number,"
             "amount,rates\n";
    for (int i = 0; i < participants; ++i) {
        table << fmt::format("Ann {0},{1}/{2}/{3},{4},7/{5},{6},{7},10%,2/{8},{9},20,{4},{10}\n", i,
                             i % 12 + 1, i % 28 + 1, year - 45 - i % 20, 50'000 + i % 90 * 10'000, year,
                             methods[i % 4], frequencies[i % 5], year + 1, lengths[i % 3], rates);
    }
}

void statements(benchmark::State& state, int participants, const char* rates, const char* options,
                int divided_by) {
    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / fmt::format("kelvar-bench-{}", participants);
    std::filesystem::create_directories(folder);
    write_table(folder / "plan.csv", participants, rates);
    const std::string command =
        fmt::format("cd {} && " KELVAR_STATEMENTS " plan.csv {}", folder.string(), options);
    for (auto _ : state) {
        const auto begun = std::chrono::steady_clock::now();
        if (std::system(command.c_str()) != 0) {
            state.SkipWithError("a line was refused, or nothing written");
            break;
        }
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begun;
        state.SetIterationTime(taken.count() / divided_by);
    }
    std::filesystem::remove_all(folder);
}

constexpr int all = 100'000;
constexpr int few = 60;
BENCHMARK_CAPTURE(statements, results, all, "all", "", 1)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(statements, one_page, few, "5%", "--pdf .", few)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();

}  // namespace

}  // namespace kelvar
