#include "core/records.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <clocale>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <thread>

#include "core/criterion.h"
#include "core/dates.h"
#include "core/names.h"
#include "core/reference_data.h"
#include "tests/support/sql.h"
#include "tests/support/temporary_program_folder.h"

namespace kelvar::test {
namespace {

using Path = std::filesystem::path;

class Records : public ::testing::Test {
protected:
    TemporaryProgramFolder folder;
    Database database{folder.database()};
    Recordset& schedule = database.schedule();

    void add(std::int64_t number, double payment) {
        schedule.AddNew();
        for (const char* field :
             {"number", "remaining", "startbalance", "remainbalance", "Month", "Year"}) {
            schedule.set(field, number);
        }
        schedule.set("Payment", payment);
        schedule.Update();
    }
    std::vector<std::string> in_file() const {
        return sql_rows(folder.database(), "SELECT number, payment FROM schedule ORDER BY rowid");
    }
    std::vector<std::string> in_memory() const { return record_rows(schedule, {"number", "payment"}); }
};

using Rows = std::vector<std::string>;

TEST_F(Records, FindFirstFollowsTheCriterion) {
    struct Case {
        Recordset& records;
        const char* criterion;
        const char* field;
        double expected;  // the published tables
    };
    const Case cases[] = {
        {database.lifexp(), "age=75", "multiple", 24.6},
        {database.lifexp(), " AGE = 75 ", "Multiple", 24.6},
        {database.joinlife(), "PartAge=75and BeneAge=64", "LifeAge", 25.3},
        {database.joinlife(), "partage=90 AND beneage=76", "lifeage", 14.7},
        {database.rate(), "rateid = 3", "rate", 7.0},
    };
    for (const Case& c : cases) {
        c.records.FindFirst(c.criterion);
        EXPECT_FALSE(c.records.NoMatch()) << c.criterion;
        EXPECT_EQ(c.records.number(c.field), c.expected) << c.criterion;
    }
}

// The tables of IRS Publication 590-B in force since 2022: some divisors as printed there, and the sums
// of all that these tables have here, where it matters too which age a divisor belongs to.
TEST_F(Records, DivisorsAreThoseOfThePublishedTables) {
    const std::pair<int, double> printed[] = {
        {16, 69.0}, {30, 55.3}, {50, 36.2}, {60, 27.1}, {65, 22.9}, {69, 19.6}, {72, 27.4}, {73, 26.5},
        {75, 24.6}, {80, 20.2}, {85, 16.0}, {90, 12.2}, {95, 8.9},  {100, 6.4}, {110, 3.5}, {120, 2.0}};
    for (const auto& [age, divisor] : printed) {
        database.lifexp().FindFirst("age=" + std::to_string(age));
        EXPECT_EQ(database.lifexp().number("multiple"), divisor) << age;
    }
    const std::pair<std::string, std::string> sums[] = {
        {"count(*), round(sum(multiple), 1), round(sum(age * multiple), 1) FROM lifexp",
         "105 2944.0 137662.7"},
        {"count(*), round(sum(LifeAge), 1), round(sum((131 * PartAge + BeneAge) * LifeAge), 1) "
         "FROM joinlife",
         "2343 74450.7 823623471.9"},
        {"count(*), sum(rate), sum(rateid * rate) FROM rate", "4 26.0 70.0"}};
    for (const auto& [sum, expected] : sums) {
        EXPECT_EQ(sql_rows(folder.database(), "SELECT " + sum), std::vector<std::string>{expected});
    }
}

TEST_F(Records, FindFirstWithoutAMatchStaysWhereItWas) {
    database.rate().FindFirst("rateid = 2");
    database.rate().FindFirst("rateid = 5");
    EXPECT_TRUE(database.rate().NoMatch());
    EXPECT_EQ(database.rate().number("rateid"), 2.0);
    database.joinlife().FindFirst("PartAge=75and BeneAge=200");
    EXPECT_TRUE(database.joinlife().NoMatch());
    EXPECT_THROW(database.lifexp().FindFirst("years=70"), DatabaseError);
    EXPECT_THROW(database.lifexp().FindFirst("age=old"), DatabaseError);
    add(1, 5.0);
    add(2, 5.0);
    schedule.FindFirst("payment=5");
    EXPECT_EQ(schedule.number("number"), 1.0) << "the first of several";
}

// As in Turkish, where the small form of I is no i. Made here, because such a locale is seldom
// installed.
TEST_F(Records, NamesAreComparedAlikeInEveryLocale) {
    std::ofstream(folder.path() / "source") << "LC_CTYPE\nupper <A>;<I>\nlower <a>;<i>\n"
                                               "tolower (<A>,<a>)\nEND LC_CTYPE\n";
    const std::string make =
        "cd " + folder.path().string() + " && I18NPATH=. localedef -c -i source ./tr";
    const int made = std::system((make + " >log 2>&1").c_str());  // 1: made, with warnings
    if (made == -1 || !std::filesystem::exists(folder.path() / "tr" / "LC_CTYPE")) {
        GTEST_SKIP() << "there is no localedef";
    }
    setenv("LOCPATH", folder.path().c_str(), 1);
    EXPECT_NE(std::setlocale(LC_CTYPE, "tr"), nullptr);
    EXPECT_EQ(month_number("APRIL"), 4);
    EXPECT_TRUE(same_name("RateID", "rateid"));
    EXPECT_FALSE(same_name("\xC4\xB0", "i"));
    EXPECT_EQ(database.rate().column("RATEID"), 0U);
    database.joinlife().FindFirst("PARTAGE=75AND BENEAGE=64");
    EXPECT_EQ(database.joinlife().number("LIFEAGE"), 25.3);
    std::setlocale(LC_CTYPE, "C");
    unsetenv("LOCPATH");
}

TEST(Criterion, RefusesOtherTexts) {
    for (const char* text :
         {"", " ", "age", "age=", "=70", "age 70", "age=x", "age=70 and", "age=70and",
          "age=70 or age=71", "age=70 age=71", "age==70", "age=nan", "age=inf"}) {
        EXPECT_THROW(parse_criterion(text), std::invalid_argument) << '"' << text << '"';
    }
}

TEST_F(Records, MovesStopAtBothEnds) {
    EXPECT_TRUE(schedule.Eof()) << "no rows";
    EXPECT_EQ(schedule.RecordCount(), 0U);
    EXPECT_THROW(schedule.number("number"), DatabaseError);
    Recordset& rate = database.rate();
    EXPECT_EQ(rate.RecordCount(), 4U);
    EXPECT_EQ(rate.number("rateid"), 1.0) << "opens on the first row";
    rate.MoveLast();
    EXPECT_EQ(rate.number("rateid"), 4.0);
    EXPECT_FALSE(rate.Eof());
    rate.MoveNext();
    rate.MoveNext();
    EXPECT_TRUE(rate.Eof());
    EXPECT_THROW(rate.text("ratemark"), DatabaseError);
    rate.MoveFirst();
    EXPECT_EQ(rate.number("rateid"), 1.0);
    EXPECT_THROW(rate.number("no_such_field"), DatabaseError);
}

TEST_F(Records, ReferenceTablesRefuseChanges) {
    for (Recordset* table : {&database.lifexp(), &database.joinlife(), &database.rate()}) {
        EXPECT_THROW(table->AddNew(), DatabaseError);
        EXPECT_THROW(table->Edit(), DatabaseError);
        EXPECT_THROW(table->Delete(), DatabaseError);
    }
}

TEST_F(Records, ChangesReachTheFileWithUpdate) {
    EXPECT_THROW(schedule.set("payment", 1.0), DatabaseError);
    EXPECT_THROW(schedule.Update(), DatabaseError);
    add(1, 10.5);
    add(2, 20.0);
    add(3, 30.0);
    EXPECT_EQ(schedule.number("number"), 3.0) << "the new row is the current one";
    schedule.MoveFirst();
    schedule.MoveNext();
    schedule.Edit();
    schedule.set("PAYMENT", 25.25);
    EXPECT_EQ(in_file()[1], "2 20.0") << "until Update";
    EXPECT_EQ(schedule.number("payment"), 20.0) << "until Update";
    schedule.Update();
    EXPECT_EQ(in_file(), (Rows{"1 10.5", "2 25.25", "3 30.0"}));
    EXPECT_EQ(in_memory(), (Rows{"1 10.5", "2 25.25", "3 30"}));

    schedule.Delete();
    EXPECT_THROW(schedule.number("number"), DatabaseError) << "the current row is gone";
    schedule.MoveNext();
    EXPECT_EQ(schedule.number("number"), 3.0);
    EXPECT_EQ(in_file(), (Rows{"1 10.5", "3 30.0"}));
    EXPECT_EQ(Database(folder.database()).schedule().RecordCount(), 2U) << "opened again";
}

TEST_F(Records, AMoveBetweenEditAndUpdateLeavesTheOtherRowAlone) {
    add(1, 10.5);
    add(2, 20.5);
    schedule.MoveFirst();
    schedule.Edit();
    schedule.set("payment", 11.5);
    schedule.MoveNext();
    schedule.Update();
    EXPECT_EQ(in_file(), (Rows{"1 11.5", "2 20.5"}));
    EXPECT_EQ(in_memory(), in_file());
}

TEST_F(Records, ATransactionLeftOpenRestoresFileAndRecordSets) {
    add(1, 10.5);
    add(2, 20.5);
    const Rows before = in_file();
    const auto change_all = [&] {
        schedule.MoveFirst();
        schedule.Delete();
        add(3, 30.5);
        database.distrib().Edit();
        database.distrib().set("dtitle", std::string{"changed"});
        database.distrib().Update();
    };
    try {
        const Database::Transaction left(database);
        change_all();
        EXPECT_EQ(in_memory(), (Rows{"2 20.5", "3 30.5"}));
        throw std::runtime_error("leave");
    } catch (const std::runtime_error&) {
    }
    EXPECT_EQ(in_file(), before);
    EXPECT_EQ(in_memory(), before);
    EXPECT_EQ(database.distrib().text("dtitle"), "");
    {
        Database::Transaction kept(database);
        change_all();
        EXPECT_EQ(in_file(), before) << "until commit";
        kept.commit();
    }
    EXPECT_EQ(in_file(), (Rows{"2 20.5", "3 30.5"}));
    EXPECT_EQ(sql_rows(folder.database(), "SELECT dtitle FROM distrib"), Rows{"changed"});
}

TEST_F(Records, AFileLockedByAnotherProgramIsWaitedFor) {
    SQLite::Database other(folder.database().string(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN IMMEDIATE");
    std::thread other_program([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        other.exec("UPDATE distrib SET dtitle = 'theirs'; COMMIT");
    });
    try {
        Database::Transaction transaction(database);
        EXPECT_EQ(database.distrib().text("dtitle"), "theirs") << "what was written meanwhile";
        add(1, 10.5);
        transaction.commit();
    } catch (const DatabaseError& error) {
        ADD_FAILURE() << error.what();
    }
    other_program.join();
    EXPECT_EQ(in_file(), Rows{"1 10.5"});
}

// An administrator may write anywhere, so somebody else tries.
TEST(DatabaseFile, FolderThatIsReadOnlyIsFoundOutWhenItIsOpened) {
    using std::filesystem::perms;
    const TemporaryProgramFolder folder;
    std::filesystem::permissions(folder.database(), perms{0666});
    std::filesystem::permissions(folder.path(), perms{0555});
    EXPECT_EXIT(
        {
            if (geteuid() == 0 && setuid(65534) != 0) {
                _exit(2);
            }
            try {
                const Database database(folder.database());
            } catch (const DatabaseError& error) {
                std::fputs(error.what(), stderr);
                _exit(1);
            }
            _exit(0);
        },
        ::testing::ExitedWithCode(1), "vestoraq.mdb: the folder is read-only");
    std::filesystem::permissions(folder.path(), perms{0755});
}

TEST(DatabaseFile, OpeningFailsWithTheNameOfTheFile) {
    struct Case {
        std::string name;
        std::function<void(const Path&)> spoil;
        std::string place{};
    };
    const auto with_sql = [](const std::string& sql) {
        return [sql](const Path& file) { run_sql(file, sql); };
    };
    const auto with_content = [](const std::string& content) {
        return [content](const Path& file) { std::ofstream(file, std::ios::trunc) << content; };
    };
    const auto instead = [](const std::function<void(const Path&)>& make) {
        return [make](const Path& file) {
            std::filesystem::remove(file);
            make(file);
        };
    };
    std::vector<Case> cases{
        {"missing", instead([](const Path&) {})},
        {"empty", with_content("")},
        {"a text file", with_content(std::string(5000, 'x'))},
        {"another program's database", instead([](const Path& file) {
             SQLite::Database(file.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
                 .exec("CREATE TABLE songs (title TEXT)");
         })},
        {"cut short", [](const Path& file) { std::filesystem::resize_file(file, 6000); }},
        {"a directory", instead([](const Path& file) { std::filesystem::create_directory(file); })},
        {"marked read-only",
         [](const Path& file) {
             std::filesystem::permissions(file, std::filesystem::perms::owner_read);
         }},
        {"a field missing in schedule", with_sql("ALTER TABLE schedule DROP COLUMN payment")},
        {"a field missing in distrib", with_sql("ALTER TABLE distrib DROP COLUMN fee")},
        {"a field missing in rate", with_sql("ALTER TABLE rate DROP COLUMN ratemark")},
        {"distrib without a row", with_sql("DELETE FROM distrib")},
        {"distrib with two rows", with_sql("INSERT INTO distrib DEFAULT VALUES")},
    };
    for (const std::string table : {"lifexp", "joinlife", "rate", "schedule", "distrib"}) {
        cases.push_back({"no table " + table, with_sql("DROP TABLE " + table)});
    }
    // The constraints of the shipped tables keep most of these out; another program's need not.
    const auto refilled = [&](const std::string& table, const std::string& select) {
        return with_sql("ALTER TABLE " + table + " RENAME TO old; CREATE TABLE " + table + " AS " +
                        select);
    };
    const auto rates = [&](const std::string& change) {
        return with_sql(
            "ALTER TABLE rate RENAME TO old;"
            "CREATE TABLE rate AS SELECT * FROM old ORDER BY rateid;" +
            change);
    };
    const auto lifexp = [&](const std::string& multiple) {
        return refilled("lifexp",
                        "SELECT age, iif(age = 118, " + multiple + ", multiple) AS multiple FROM old");
    };
    const std::string too_long(61, 'x');
    for (const Case& c : std::initializer_list<Case>{
             {"five rates", rates("INSERT INTO rate VALUES (5, 9, 'x')"), "table rate, row 5: rateid"},
             {"rates in another order", rates("UPDATE rate SET rateid = 5 - rateid"),
              "table rate, row 2: rateid"},
             {"half a rateid", rates("UPDATE rate SET rateid = 1.5 WHERE rateid = 1"),
              "table rate, row 1: rateid"},
             {"a rate twice", rates("UPDATE rate SET rateid = 2 WHERE rateid = 3"),
              "table rate, row 3: rateid"},
             {"a rate as a text", rates("UPDATE rate SET rate = '5,5' WHERE rateid = 2"),
              "table rate, row 2: rate "},
             {"no rate", rates("UPDATE rate SET rate = NULL WHERE rateid = 2"),
              "table rate, row 2: rate "},
             {"all is lost", rates("UPDATE rate SET rate = -100 WHERE rateid = 4"),
              "table rate, row 4: rate "},
             {"doubled", rates("UPDATE rate SET rate = 100 WHERE rateid = 1"),
              "table rate, row 1: rate must be a number above -100 and below 100"},
             {"an infinite rate", rates("UPDATE rate SET rate = 9e999 WHERE rateid = 1"),
              "table rate, row 1: rate "},
             {"an empty mark", rates("UPDATE rate SET ratemark = '' WHERE rateid = 3"),
              "table rate, row 3: ratemark"},
             {"no mark", rates("UPDATE rate SET ratemark = NULL WHERE rateid = 3"),
              "table rate, row 3: ratemark"},
             {"a long mark", rates("UPDATE rate SET ratemark = '" + too_long + "' WHERE rateid = 3"),
              "table rate, row 3: ratemark"},
             {"a mark of two lines", rates("UPDATE rate SET ratemark = 'a' || char(10) || 'b'"),
              "table rate, row 1: ratemark"},
             {"half an age", refilled("lifexp", "SELECT age + 0.5 AS age, multiple FROM old"),
              "table lifexp, row 1: age"},
             {"an age as a text", refilled("lifexp", "SELECT age || '' AS age, multiple FROM old"),
              "table lifexp, row 1: age"},
             {"an age beyond counting",
              refilled("lifexp", "SELECT age << 40 AS age, multiple FROM old"),
              "table lifexp, row 1: age"},
             {"an age twice", refilled("lifexp", "SELECT min(age, 118) AS age, multiple FROM old"),
              "table lifexp, row 2: age 118"},
             {"a divisor of 0", lifexp("0"), "table lifexp, row 3: multiple"},
             {"a negative divisor", lifexp("-2.5"), "table lifexp, row 3: multiple"},
             {"a divisor that wraps around", lifexp("200"), "table lifexp, row 3: multiple"},
             {"an infinite divisor", lifexp("9e999"), "table lifexp, row 3: multiple"},
             {"a divisor as a text", lifexp("'2.5'"), "table lifexp, row 3: multiple"},
             {"half a spouse", with_sql("UPDATE joinlife SET BeneAge = 35.5 WHERE rowid = 7"),
              "table joinlife, row 7: BeneAge"},
             {"a pair twice", refilled("joinlife", "SELECT * FROM old UNION ALL SELECT * FROM old"),
              "table joinlife, row 2344: ages "},
             {"a joint divisor of 0", with_sql("UPDATE joinlife SET LifeAge = 0 WHERE rowid = 2343"),
              "table joinlife, row 2343: LifeAge"}}) {
        cases.push_back(c);
    }
    for (const Case& c : cases) {
        const TemporaryProgramFolder folder;
        c.spoil(folder.database());
        const bool there = std::filesystem::exists(folder.database());
        try {
            Database opened(folder.database());
            check_reference_data(opened);
            ADD_FAILURE() << c.name << ": opened";
        } catch (const DatabaseError& error) {
            const std::string what = error.what();
            EXPECT_TRUE(what.starts_with(folder.database().string() + ": " + c.place))
                << c.name << ": " << what;
        }
        EXPECT_EQ(std::filesystem::exists(folder.database()), there) << c.name;
    }
    const TemporaryProgramFolder folder;
    run_sql(folder.database(),
            "UPDATE rate SET rate = 99.99, ratemark = replace(hex(zeroblob(30)), '0', 'é') WHERE "
            "rateid = 4;"
            "UPDATE rate SET rate = -99.99 WHERE rateid = 1; UPDATE lifexp SET multiple = 199.9");
    Database at_the_bounds(folder.database());
    EXPECT_NO_THROW(check_reference_data(at_the_bounds));
    run_sql(folder.database(), "DELETE FROM rate WHERE rateid IN (1, 3)");
    Database with_two_rates(folder.database());
    EXPECT_NO_THROW(check_reference_data(with_two_rates));
}

}  // namespace
}  // namespace kelvar::test
