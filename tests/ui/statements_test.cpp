// Statements for a whole plan against the screens: the same participants by both ways, and the program
// itself as an office runs it.

#include <fmt/format.h>

#include <QComboBox>
#include <cstdlib>
#include <fstream>
#include <map>
#include <random>
#include <sstream>

#include "core/numbers.h"
#include "core/plan.h"
#include "engine/store.h"
#include "participant/participant_file.h"
#include "statements/columns.h"
#include "statements/results.h"
#include "tests/support/sql.h"
#include "tests/support/ui_harness.h"
#include "widgets/text.h"

namespace kelvar::test {

namespace {

using namespace Qt::StringLiterals;

constexpr const char* header =
    "name,birth date,balance,first payment,method,frequency,lump sum,payments "
    "from,length,number,amount,"
    "spouse's birth date,rates\n";

// Entries as texts, which the rules accept on 2020-01-15.
struct Person {
    int method, frequency, length, rate;
    std::string birth, balance, month, year, lump_sum, later, number, amount, spouse;
};

Person person(std::mt19937& random) {
    const auto from = [&](int least, int most) {
        return least + static_cast<int>(random() % static_cast<unsigned>(most - least + 1));
    };
    Person p{from(1, 3), from(0, 3), from(1, 3), from(1, 4), {}, {}, {}, {}, {}, {}, {}, {}, {}};
    const auto date = [&](int first, int last) {
        return fmt::format("{:02}/{:02}/{}", from(1, 12), from(1, 28), from(first, last));
    };
    const double balance = from(5'000'000, 90'000'000) / 100.0;
    const int yearly = plan::frequencies[p.frequency].payments_per_year;
    p.birth = date(1951, 1960);
    p.balance = format_number(balance, pattern::amount);
    p.month = month_name(from(2, 12));
    p.year = std::to_string(from(2020, 2021));
    p.lump_sum =
        from(0, 1) == 0 ? std::to_string(from(5, 60)) + "%" : std::to_string(from(900, 20'000));
    p.later = month_name(from(1, 3));
    p.number = std::to_string(from(1, 20));
    p.amount = format_number(balance / yearly / from(4, 9), pattern::plain_amount);
    p.spouse = from(0, 1) == 0 ? "" : date(1972, 1980);
    return p;
}

class Statements : public UiTest {
public:
    static std::vector<std::string> work_tables(const TemporaryProgramFolder& of) {
        std::vector<std::string> rows = sql_rows(of.database(), "SELECT * FROM schedule");
        const auto heading = sql_rows(of.database(), "SELECT * FROM distrib");
        rows.insert(rows.end(), heading.begin(), heading.end());
        return rows;
    }

    bool goes_on_to(const char* screen) {
        click("Cmdnext");
        return screen_name() == QLatin1String(screen);
    }
    void pick(const char* list, const std::string& entry) {
        if (find<QComboBox>(list)->findText(to_qt(entry)) >= 0) {
            choose(list, to_qt(entry));
        }
    }

    // As far as the screens let it.
    void type(const Person& p) {
        const auto indexed = [](const char* name, int index) {
            return fmt::format("{}_{}", name, index);
        };
        go_to_participant();
        enter("mskbirth", to_qt(p.birth));
        enter("txtcurvalue", to_qt(p.balance));
        pick("Cmbfrstyear", p.year);
        pick("Cmbfrstmonth", p.month);
        if (!goes_on_to("frmdist2")) {
            return;
        }
        click(indexed("optmethod", p.method - 1).c_str());
        if (p.method == partial_lump_sum) {
            const bool percent = p.lump_sum.ends_with('%');
            enter(percent ? "cmbPercent" : "txtpartial",
                  to_qt(p.lump_sum.substr(0, p.lump_sum.size() - (percent ? 1 : 0))));
            pick("cmbscnyear", "2022");
            pick("cmbscnmonth", p.later);
        }
        if (p.method != lump_sum) {
            click(indexed(p.method == partial_lump_sum ? "chkpartial" : "chkperiod", p.frequency)
                      .c_str());
            if (!goes_on_to("frmdist3")) {
                return;
            }
            click(indexed("optlength", p.length - 1).c_str());
            if (p.length == by_number_of_payments) {
                enter("txtnumber", to_qt(p.number));
            } else if (p.length == by_dollar_amount) {
                enter("txtfixamount", to_qt(p.amount));
            } else if (!p.spouse.empty()) {
                click("oplifeexp_1");
                enter("mskbenebirth", to_qt(p.spouse));
            }
        }
        if (goes_on_to("frmdrate")) {
            click(indexed("chkrate", p.rate).c_str());
            click("Cmdnext");
        }
    }

    static std::string line_of(const Person& p, Database& table) {
        constexpr const char* methods[] = {"", "lump sum", "periodic payments", "partial lump sum"};
        constexpr const char* lengths[] = {"", "number of payments", "dollar amount",
                                           "life expectancy"};
        return fmt::format(",{},\"{}\",\"{}, {}\",{},{},\"{}\",{} 2022,{},\"{}\",\"{}\",{},{}", p.birth,
                           p.balance, p.month, p.year, methods[p.method],
                           plan::frequencies[p.frequency].name, p.lump_sum, p.later, lengths[p.length],
                           p.number, p.amount, p.spouse,
                           as_text(table.rate().cell(static_cast<std::size_t>(p.rate - 1), 1)));
    }

    Participant read(const std::string& line, Database& table) const {
        std::istringstream lines(header + line);
        std::optional<Columns> columns;
        Participant participant;
        read_csv(lines, [&](const CsvRecord& record) {
            if (columns) {
                participant = columns->read(record, table, today);
            } else {
                columns.emplace(record, "");
            }
            return true;
        });
        return participant;
    }
};

TEST_F(Statements, AgreeWithScreensAndFilesToTheByte) {
    std::mt19937 random(20200115);
    const TemporaryProgramFolder other;
    Database table(other.database());
    const std::string file = (folder.path() / "Ann.kelvar").string();
    std::map<std::pair<int, int>, int> seen;
    for (int i = 0; i < 100 && !HasFailure(); ++i) {
        const Person p = person(random);
        const std::string line = line_of(p, table);
        type(p);
        EXPECT_EQ(take_messages(), std::vector<std::string>()) << line;
        const auto typed = work_tables(folder);
        std::ofstream(file) << participant_text(window->entered());
        window->open_file(to_qt(file));
        settle();
        EXPECT_EQ(work_tables(folder), typed) << line;
        const Participant participant = read(line, table);
        EXPECT_EQ(participant.refusal, "") << line;
        for (const Projection& projection : projections_of(participant, today)) {
            table.empty_work_tables();
            store(table, projection.schedule, heading_of(participant.scenario, projection));
        }
        EXPECT_EQ(work_tables(other), typed) << line;
        ++seen[{p.method, p.length}];
        click("cmdmenu");
    }
    EXPECT_EQ(seen.size(), 9U);
}

TEST_F(Statements, RefuseInTheWordsOfTheScreens) {
    const std::pair<std::string Person::*, std::vector<const char*>> faults[] = {
        {&Person::birth, {"", "1950-06-15", "6/15/2010", "13/45/1950", "June", "1/1/1900"}},
        {&Person::balance, {"250000 USD", "", "0.001", "(5)", "1,5", "$", "#REF!", "-0"}},
        {&Person::lump_sum, {"x", "99999999", "0%", "150%", "-3", "1,5", ""}},
        {&Person::number, {"many", "0", "5000", "1e9", "0.4", "1,5"}},
        {&Person::amount, {"many", "1", "0.004", "1,5", ""}},
        {&Person::spouse, {"2/30/1975", "1/1/1952", "1/1/1995", "1/1/2021", "5"}}};
    std::mt19937 random(20200116);
    int refused = 0;
    const auto compare = [&](const Person& p) {
        start_program();
        type(p);
        const auto messages = take_messages();
        const std::string line = line_of(p, module->database());
        const std::string refusal = read(line, module->database()).refusal;
        EXPECT_EQ(refusal, messages.empty() ? "" : messages.front()) << line;
        refused += refusal.empty() ? 0 : 1;
    };
    for (const auto& [field, texts] : faults) {
        for (std::size_t i = 0; i < 3 * texts.size(); ++i) {
            const char* const text = texts[i % texts.size()];
            Person p = person(random);
            p.method = field == &Person::lump_sum ? partial_lump_sum : periodic_payments;
            p.length = field == &Person::number   ? by_number_of_payments
                       : field == &Person::amount ? by_dollar_amount
                                                  : by_life_expectancy;
            p.*field = text;
            compare(p);
        }
    }
    // Without a date of birth no year is offered, and the month alone has passed.
    today = Date{std::chrono::year{2020} / 8 / 15};
    Person nobody = person(random);
    nobody.birth.clear();
    nobody.month = "July";
    compare(nobody);
    EXPECT_GT(refused, 90);
}

class StatementsProgram : public ::testing::Test {
public:
    using Path = std::filesystem::path;

    StatementsProgram() {
        for (const auto& report : std::filesystem::directory_iterator(KELVAR_REPORTS)) {
            std::filesystem::copy(report, folder.path());
        }
        const int year = year_of(system_date()) + 1;
        std::ofstream table(work.path() / "plan.csv");
        table << header;
        for (int i = 0; i < 5; ++i) {
            table << fmt::format("../Ann {},6/15/1965,{},7/{},periodic,Monthly,,,number,{},,,5;8\n", i,
                                 200'000 + i, year, 12 + i);
        }
        table << "Al,6/15/1965,100000,7/" << year << ",lump sum\nBo\n";
    }

    // Of what is written into a folder of its own.
    int run(const std::string& into, const std::string& options) const {
        std::filesystem::create_directory(work.path() / into);
        const std::string program_folder =
            options.starts_with("--program") ? "" : " --program " + folder.path().string();
        const std::string command =
            fmt::format("cd {} && " KELVAR_STATEMENTS "  ../plan.csv {} {} >out 2>err",
                        (work.path() / into).string(), options, program_folder);
        return WEXITSTATUS(std::system(command.c_str()));
    }
    std::map<std::string, std::string> files(const std::string& in) const {
        std::map<std::string, std::string> all;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(work.path() / in)) {
            if (entry.is_regular_file()) {
                std::ostringstream bytes;
                bytes << std::ifstream(entry.path()).rdbuf();
                all[std::filesystem::relative(entry.path(), work.path() / in).string()] = bytes.str();
            }
        }
        return all;
    }

    const TemporaryProgramFolder folder, work;
};

TEST_F(StatementsProgram, WritesTheSameWithAnyNumberOfJobsAndAfterAnInterruption) {
    const std::string all = "--pdf pdf --years --schedules payments.csv";
    const auto written = last_write_time(folder.database());
    EXPECT_EQ(run("one", all), 1);
    EXPECT_EQ(run("three", all + " --jobs 3"), 1);
    const auto one = files("one");
    EXPECT_EQ(files("three"), one);
    EXPECT_EQ(one.size(), 10U);
    EXPECT_EQ(one.at("out") + one.at("err"), "1 of 7 lines were refused; results.csv says why.\n");
    ASSERT_TRUE(one.contains("pdf/-Ann 4 (line 6).pdf"));
    EXPECT_TRUE(one.at("results.csv")
                    .ends_with("8,Bo,,,,,,,,,,,Invalid present value of the account.,balance\r\n"));
    EXPECT_EQ(std::filesystem::status(work.path() / "one/results.csv").permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);

    const Path kept = work.path() / "three/pdf/-Ann 4 (line 6).pdf";
    const auto first = last_write_time(kept);
    std::filesystem::remove(work.path() / "three/pdf/-Ann 3 (line 5).pdf");
    std::filesystem::remove(work.path() / "three/results.csv");
    std::ofstream(work.path() / "three/pdf/Gone (line 99).pdf") << "of an older table";
    last_write_time(work.path() / "three/pdf/Gone (line 99).pdf", written);
    EXPECT_EQ(run("three", all + " --resume"), 1);
    EXPECT_TRUE(files("three").at("err").ends_with("made of: Gone (line 99).pdf.\n"));
    std::filesystem::remove(work.path() / "three/pdf/Gone (line 99).pdf");
    std::ofstream(folder.path() / "results.csv") << "newer, and no part of a statement";
    EXPECT_EQ(run("three", all + " --resume"), 1);
    EXPECT_EQ(files("three"), one);
    EXPECT_EQ(last_write_time(kept), first);
    EXPECT_EQ(run("three", all), 1);
    const auto second = last_write_time(kept);
    EXPECT_GT(second, first) << "nobody asked to keep it";
    last_write_time(folder.path() / "periodic.rpt", std::filesystem::file_time_type::clock::now());
    EXPECT_EQ(run("three", all + " --resume"), 1);
    EXPECT_GT(last_write_time(kept), second) << "older than a template";
    EXPECT_EQ(last_write_time(folder.database()), written);
}

TEST_F(StatementsProgram, SaysWhatItCannotReadOrWrite) {
    const std::pair<const char*, const char*> cases[] = {
        {"-o ../plan.csv", "The table, --results and --schedules must be different files."},
        {"--schedules /nowhere/a.csv",
         "The file /nowhere/a.csv cannot be written: No such file or directory."},
        {"--jobs 0", "--jobs: Value 0 not in range 1 to 256"},
        {"--years", "--years requires --pdf"},
        {"--program /nowhere --jobs 2", "/nowhere/vestoraq.mdb: unable to open database file"}};
    for (const auto& [options, message] : cases) {
        EXPECT_EQ(run("none", options), 2) << options;
        const auto left = files("none");
        EXPECT_NE(left.at("err").find(message), std::string::npos) << left.at("err");
        EXPECT_EQ(left.size(), 2U) << options;
    }
    std::filesystem::remove(folder.path() / "lumpsum.rpt");
    EXPECT_EQ(run("none", "--pdf pdf"), 2);
    EXPECT_NE(files("none").at("err").find("lumpsum.rpt"), std::string::npos);
}

}  // namespace

}  // namespace kelvar::test
