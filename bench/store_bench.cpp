// The longest real schedule, computed and stored, against what the disk takes for any commit at all.
#include <SQLiteCpp/SQLiteCpp.h>
#include <benchmark/benchmark.h>

#include "engine/store.h"
#include "tests/support/temporary_program_folder.h"

namespace kelvar {

namespace {

using namespace std::chrono_literals;

void compute_and_store(benchmark::State& state) {
    const test::TemporaryProgramFolder folder;
    Database database(folder.database());
    const PaymentTerms terms{250000.0, 2026y / 7 / 15, 12, 6.0, 80.0};
    for (auto _ : state) {
        store(
            database, LevelPaymentSchedule(terms, 828),
            {{"dtitle", std::string{"Periodic Payments - Monthly"}}, {"payments", std::int64_t{828}}});
    }
}

void bare_commit_of_one_row(benchmark::State& state) {
    const test::TemporaryProgramFolder folder;
    SQLite::Database connection((folder.path() / "bare.db").string(),
                                SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    connection.exec("PRAGMA synchronous = FULL; CREATE TABLE t (n INTEGER); INSERT INTO t VALUES (0)");
    SQLite::Statement change(connection, "UPDATE t SET n = n + 1");
    for (auto _ : state) {
        change.exec();
        change.reset();
    }
}

BENCHMARK(compute_and_store)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(bare_commit_of_one_row)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

}  // namespace kelvar
