#include "engine/store.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <random>
#include <thread>

#include "tests/support/sql.h"
#include "tests/support/temporary_program_folder.h"

namespace kelvar::test {
namespace {

using namespace std::chrono_literals;
using Rows = std::vector<std::string>;

PaymentSchedule level(double start_value, int payments) {
    return LevelPaymentSchedule({start_value, 2026y / 11 / 15, 12, 6.0, 80.0}, payments);
}

Rows file_rows(const std::filesystem::path& file) {
    return sql_rows(file, "SELECT * FROM schedule ORDER BY rowid");
}

Rows heading_in_file(const std::filesystem::path& file) {
    return sql_rows(file, "SELECT * FROM distrib");
}

Rows rows_of(const Recordset& schedule) {
    return record_rows(
        schedule, {"number", "remaining", "startbalance", "payment", "remainbalance", "Month", "Year"});
}

class Store : public ::testing::Test {
protected:
    TemporaryProgramFolder folder;
    Database database{folder.database()};
};

TEST_F(Store, ReplacesTheRowsAndTheNamedHeadingFields) {
    store(database, level(5000.0, 40),
          {{"dtitle", std::string{"first"}}, {"payments", std::int64_t{40}}, {"curvalue", 5000.5}});
    store(database, level(10000.0, 3), {{"payments", std::int64_t{3}}, {"Fee", std::string{"$80"}}});
    // Figures worked out apart with decimal arithmetic.
    const Rows expected{"1 2 10000.0 3333.33 6666.67 November 2026",
                        "2 1 6693.05 3333.33 3359.72 December 2026"};
    const Rows rows = file_rows(folder.database());
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(Rows(rows.begin(), rows.begin() + 2), expected);
    EXPECT_EQ(rows_of(database.schedule())[1], "2 1 6693.05 3333.33 3359.72 December 2026");
    EXPECT_EQ(sql_rows(folder.database(),
                       "SELECT dtitle, payments, curvalue, fee, rate IS NULL FROM distrib"),
              Rows{"first 3 5000.5 $80 1"});
    EXPECT_EQ(database.distrib().text("dtitle"), "first");

    const Rows heading = heading_in_file(folder.database());
    store(database, PaymentSchedule{}, {});
    EXPECT_TRUE(file_rows(folder.database()).empty());
    EXPECT_EQ(database.schedule().RecordCount(), 0U);
    EXPECT_EQ(heading_in_file(folder.database()), heading) << "no heading given, none written";
}

TEST_F(Store, WhatOthersWroteMeanwhileIsReplacedAsWell) {
    store(database, level(5000.0, 5), {{"dtitle", std::string{"ours"}}});
    EXPECT_FALSE(database.changed_by_others());
    run_sql(folder.database(),
            "INSERT INTO schedule SELECT number + 5, 0, 0, 0, 0, Month, Year FROM schedule;"
            "UPDATE distrib SET dtitle = 'theirs', fee = '$1'");
    EXPECT_TRUE(database.changed_by_others());
    EXPECT_EQ(database.schedule().RecordCount(), 5U) << "what is on the screen stays";
    store(database, level(9000.0, 12), {{"payments", std::int64_t{12}}});
    EXPECT_FALSE(database.changed_by_others());
    EXPECT_EQ(file_rows(folder.database()).size(), 12U);
    EXPECT_EQ(rows_of(database.schedule()).size(), 12U);
    EXPECT_EQ(sql_rows(folder.database(), "SELECT dtitle, fee, payments FROM distrib"),
              Rows{"theirs $1 12"})
        << "fields not named keep what the last writer left in them";

    run_sql(folder.database(), "DELETE FROM schedule; UPDATE distrib SET rowid = 7");
    store(database, level(5000.0, 5), {{"payments", std::int64_t{5}}});
    EXPECT_EQ(sql_rows(folder.database(), "SELECT rowid, payments FROM distrib"), Rows{"7 5"});

    const Rows records = rows_of(database.schedule());
    run_sql(folder.database(), "DELETE FROM schedule WHERE number = 2; DELETE FROM distrib");
    const Rows theirs = file_rows(folder.database());
    for (int attempt = 1; attempt <= 2; ++attempt) {
        EXPECT_THROW(store(database, level(9000.0, 12), {}), DatabaseError) << attempt;
        EXPECT_EQ(file_rows(folder.database()), theirs);
        EXPECT_EQ(rows_of(database.schedule()), records) << "what is on the screen stays";
        EXPECT_TRUE(database.changed_by_others());
    }
}

TEST_F(Store, AFailureInTheMiddleLeavesTheOldScheduleWhole) {
    struct Case {
        const char* name;
        std::string event;
        std::string action;
        const char* heading_field;
    };
    const std::string seventh = "BEFORE INSERT ON schedule WHEN NEW.number = 7";
    const std::string abort = "ABORT, 'refused'";
    const Case cases[] = {
        {"unknown heading field", "AFTER INSERT ON rate", abort, "no_such_field"},
        {"the seventh row is refused", seventh, abort, "rate"},
        {"the seventh row is left out without a word", seventh, "IGNORE", "rate"},
        {"the engine gives up everything, as on a full disk", seventh, "ROLLBACK, 'refused'", "rate"},
        {"the heading is refused", "BEFORE UPDATE ON distrib", abort, "rate"},
        {"the heading stays without a word", "BEFORE UPDATE ON distrib", "IGNORE", "rate"},
        {"an old row stays", "BEFORE DELETE ON schedule WHEN OLD.number = 3", abort, "rate"}};
    const Heading heading{{"dtitle", std::string{"old"}}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        store(database, level(5000.0, 5), heading);
        const Rows rows = file_rows(folder.database());
        const Rows heading_row = heading_in_file(folder.database());
        const Rows records = rows_of(database.schedule());

        run_sql(folder.database(),
                "CREATE TRIGGER obstacle " + c.event + " BEGIN SELECT RAISE(" + c.action + "); END");
        const Heading changed{{"dtitle", std::string{"new"}}, {c.heading_field, std::string{"6%"}}};
        EXPECT_THROW(store(database, level(9000.0, 12), changed), DatabaseError);
        EXPECT_EQ(file_rows(folder.database()), rows);
        EXPECT_EQ(heading_in_file(folder.database()), heading_row);
        EXPECT_EQ(rows_of(database.schedule()), records);
        EXPECT_EQ(database.distrib().text("dtitle"), "old");

        run_sql(folder.database(), "DROP TRIGGER obstacle");
        EXPECT_NO_THROW(store(database, level(9000.0, 12), heading)) << "once the obstacle is gone";
        EXPECT_EQ(file_rows(folder.database()).size(), 12U);
    }
}

// A store that really runs out of room, or whose folder goes away, in a process of its own: the rows
// and the heading from before are all still there.
TEST(StoreOnABadDisk, KeepsTheOldSchedule) {
    struct Case {
        const char* name;
        void (*damage)(const std::filesystem::path& folder);
        void (*repair)(const std::filesystem::path& folder);
    };
    static const auto moved = [](const std::filesystem::path& folder) {
        return folder.string() + "-moved";
    };
    const Case cases[] = {
        {"no room for more than the file has",
         [](const std::filesystem::path& folder) {
             std::signal(SIGXFSZ, SIG_IGN);
             const rlim_t size = std::filesystem::file_size(folder / "vestoraq.mdb");
             const rlimit limit{size, size};
             setrlimit(RLIMIT_FSIZE, &limit);
         },
         [](const std::filesystem::path&) {}},
        {"the folder has gone",
         [](const std::filesystem::path& folder) { std::filesystem::rename(folder, moved(folder)); },
         [](const std::filesystem::path& folder) { std::filesystem::rename(moved(folder), folder); }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const TemporaryProgramFolder folder;
        {
            Database database(folder.database());
            store(database, level(5000.0, 7), {{"payments", std::int64_t{7}}});
        }
        const Rows rows = file_rows(folder.database());
        const Rows heading = heading_in_file(folder.database());
        EXPECT_EXIT(
            {
                Database database(folder.database());
                c.damage(folder.path());
                try {
                    store(database, level(90000.0, 3000), {{"payments", std::int64_t{3000}}});
                } catch (const DatabaseError& error) {
                    std::fputs(error.what(), stderr);
                    _exit(1);
                }
                _exit(0);
            },
            ::testing::ExitedWithCode(1), "vestoraq.mdb: .+");
        c.repair(folder.path());
        EXPECT_EQ(file_rows(folder.database()), rows);
        EXPECT_EQ(heading_in_file(folder.database()), heading);
    }
}

// Stores two schedules in turn until it is killed; a byte on `started` tells that it is at work.
[[noreturn]] void store_for_ever(const std::filesystem::path& file, int started) {
    try {
        Database database(file);
        for (bool told = false;; told = true) {
            store(database, level(90000.0, 300), {{"payments", std::int64_t{300}}});
            if (!told && write(started, "!", 1) != 1) {
                break;
            }
            store(database, level(5000.0, 7), {{"payments", std::int64_t{7}}});
        }
    } catch (const std::exception&) {
    }
    _exit(1);
}

// KELVAR_STORE_KILLS says how often; the sanitizers take more than a quick test run.
TEST(StoreKilled, LeavesAWholeSchedule) {
    const TemporaryProgramFolder folder;
    Rows whole_long;
    Rows whole_short;
    {
        Database database(folder.database());
        store(database, level(90000.0, 300), {});
        whole_long = file_rows(folder.database());
        store(database, level(5000.0, 7), {});
        whole_short = file_rows(folder.database());
    }
    std::mt19937 random(20260715);
    std::uniform_int_distribution<int> microseconds(0, 30'000);
    const char* const wanted = std::getenv("KELVAR_STORE_KILLS");
    const int kills = wanted == nullptr ? 60 : std::atoi(wanted);
    for (int run = 0; run < kills && !HasFailure(); ++run) {
        int started[2];
        ASSERT_EQ(pipe(started), 0);
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            store_for_ever(folder.database(), started[1]);
        }
        close(started[1]);
        char byte = 0;
        EXPECT_EQ(read(started[0], &byte, 1), 1) << "the child never stored anything";
        close(started[0]);
        std::this_thread::sleep_for(std::chrono::microseconds(microseconds(random)));
        kill(child, SIGKILL);
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFSIGNALED(status)) << "the child gave up by itself";

        Database database(folder.database());
        const Rows rows = file_rows(folder.database());
        const bool is_long = rows.size() == whole_long.size();
        EXPECT_EQ(rows, is_long ? whole_long : whole_short) << "run " << run;
        EXPECT_EQ(rows_of(database.schedule()).size(), rows.size());
        EXPECT_EQ(database.distrib().number("payments"), is_long ? 300.0 : 7.0) << "run " << run;
    }
}

}  // namespace
}  // namespace kelvar::test
