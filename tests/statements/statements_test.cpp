// Tables of participants as spreadsheets leave them. What is refused is compared with the texts of the
// screens, letter for letter.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <memory>
#include <optional>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "statements/cells.h"
#include "statements/columns.h"
#include "statements/results.h"
#include "tests/support/temporary_program_folder.h"

namespace kelvar::test {
namespace {

using namespace std::chrono_literals;

const Date today{2020y / 1 / 15};

// Those of a table with all columns.
std::vector<Participant> participants_of(const std::string& lines, Database& database) {
    std::istringstream table(
        "\xEF\xBB\xBFNAME,birth_date,Balance,First Payment,method,frequency,lump sum,payments "
        "from,length,"
        "number,amount,joint,Spouse\xE2\x80\x99s birth date,rates,\r\n" +
        lines);
    std::vector<Participant> participants;
    std::optional<Columns> columns;
    read_csv(table, [&](const CsvRecord& record) {
        if (columns) {
            participants.push_back(columns->read(record, database, today));
        } else {
            columns.emplace(record, "plan.csv");
        }
        return true;
    });
    return participants;
}

class Tables : public ::testing::Test {
protected:
    const TemporaryProgramFolder folder;
    const std::unique_ptr<Database> database = Database::copy_of(folder.database());
};

TEST_F(Tables, SayWhatTheScreensSayOfEachCell) {
    const std::string beyond =
        "Periodic payments cannot commence prior to the initial partial lump sum (first payment) date!";
    struct Case {
        std::string line, refusal, column;
    };
    const Case cases[] = {
        {"Ann,6/15/50,\"$250,000.00\",July 2020,periodic,monthly,,,life", "", ""},
        {"Ann, 06-15-1950 ,250000,2020-07,Partial,Annual,12.5%,Feb-21,number,10", "", ""},
        {"Ann,1950-06-15,x,,,", "Invalid birth date.", "birth date"},
        {"Ann,\"June 15, 1950\",250000,7/2020,lump sum", "Invalid birth date.", "birth date"},
        {"Ann,6/15/2010,250000,7/2020,lump sum", "The current age should be at least 16 years!",
         "birth date"},
        {",,250000,7/2020,lump sum", "Invalid birth date.", "birth date"},
        {"Ann,6/15/50,250000 USD,7/2019,lump sum", "Invalid present value of the account", "balance"},
        {"Ann,6/15/50,,7/2020,lump sum", "Invalid present value of the account.", "balance"},
        {"Ann,6/15/50,250000,13/2020,lump sum", "Invalid month that you wish to begin payments.",
         "first payment"},
        {"Ann,6/15/50,250000,7/2020,annuity", "Choose how the account is to be paid out to go on.",
         "method"},
        {"Ann,6/15/50,250000,7/2020,periodic,weekly,,,life",
         "Invalid periodic payments selection. Select frequency of period payments.", "frequency"},
        {"Ann,6/15/50,250000,7/2020,partial,,5000,2/2021,life",
         "Invalid periodic payments selection. Select frequency of period payments.", "frequency"},
        {"Ann,6/15/50,250000,7/2020,partial,monthly,#REF!,2/2021,life",
         "Invalid partial lump sum amount.", "lump sum"},
        {"Ann,6/15/50,250000,7/2020,partial,monthly,,2/2021,life", "Invalid partial amount certain!",
         "lump sum"},
        {"Ann,6/15/50,250000,7/2020,partial,monthly,250000,2/2021,life",
         "Invalid partial lump sum amount.", "lump sum"},
        {"Ann,6/15/50,250000,7/2020,partial,monthly,100%,2/2021,life",
         "Invalid percentage of Partial Lump Sum amount", "lump sum"},
        {"Ann,6/15/50,250000,7/2020,partial,monthly,5000,7/2020,life", beyond, "payments from"},
        {"Ann,6/15/50,250000,7/2020,periodic,monthly,,,forever", "Invalid mumber of payments.",
         "length"},
        {"Ann,6/15/50,250000,7/2020,periodic,monthly,,,number,many", "Invalid mumber of payments.",
         "number"},
        {"Ann,6/15/50,250000,7/2020,periodic,monthly,,,number,1e99", "Invalid mumber of payments.",
         "number"},
        {"Ann,6/15/50,250000,7/2020,periodic,monthly,,,number,1e30",
         "The number of payments will exceed your life expectancy or result in an amount below your "
         "minimum distribution. Please reduce the number of payments!",
         "number"},
        {"Ann,6/15/50,250000,7/2020,periodic,monthly,,,amount,,many",
         "Invalid dollar amount of payments", "amount"},
        {"Ann,6/15/50,250000,7/2020,periodic,monthly,,,life,,,yes",
         "Please enter the birthdate of your spouse.", "spouse's birth date"},
        {"Ann,6/15/50,250000,7/2020,periodic,monthly,,,life,,,yes,1/1/55",
         "You cannot select Joint Life Expectancy. It is an option only when your spouse is more than "
         "10 "
         "years younger than you.",
         "joint"},
        {"Ann,6/15/50,250000,7/2020,periodic,monthly,,,life,,,,1/1/99",
         "You can select Joint Life Expectancy only if your spouse is at least 35 years old, and is at "
         "least 10 years younger than you!",
         "spouse's birth date"},
        {"Ann,6/15/50,250000,7/2020,lump sum,,,,,,,,,\"5,5%\"",
         "Select one or more annual rate of return.", "rates"},
        {"Ann,6/15/50,250000,7/2020,lump sum,,,,,,,,,5;12%",
         "Select one or more annual rate of return.", "rates"},
        {"Ann,6/15/50,250000,7/2020,lump sum,,,,,,,maybe", "This must be \"yes\" or \"no\".", "joint"},
        {"Ren\xE9,6/15/50,250000,7/2020,lump sum",
         "This is not in UTF-8. Save the table as CSV in UTF-8, which spreadsheets offer beside plain "
         "CSV.",
         "name"},
        {"Ann,6/15/50,250000,7/2020,lump sum,,,,,,,,,,,1",
         "This line has more cells than there are columns.", ""},
        {"\"Ann,6/15/50,250000,7/2020,lump sum", "A quotation mark in this line is never closed.", ""}};
    std::set<std::string> columns;
    for (const Case& c : cases) {
        const auto read = participants_of(c.line, *database);
        ASSERT_EQ(read.size(), 1U) << c.line;
        EXPECT_EQ(read[0].refusal, c.refusal) << c.line;
        EXPECT_EQ(read[0].column, c.column) << c.line;
        columns.insert(read[0].column);
    }
    EXPECT_EQ(columns.size(), 15U) << "all but one, and none";
}

TEST_F(Tables, CountLinesAsEditorsDo) {
    const auto read = participants_of(
        "\"Ann\r\nMiller\",6/15/50\r\n,,,\r\n\r\n  \"Al \"\"Q\"\" Fox\" ,\n \t\nCy\r\rDee,\r\n\"Eve\n",
        *database);
    std::vector<std::string> seen(read.size());
    std::ranges::transform(read, seen.begin(), [](const Participant& participant) {
        return std::to_string(participant.line) + ' ' + participant.name;
    });
    EXPECT_EQ(seen,
              (std::vector<std::string>{"2 Ann Miller", "6 Al \"Q\" Fox", "8 Cy", "10 Dee", "11 Eve"}));
}

TEST_F(Tables, AreRefusedWithoutTheColumnsThatTheyNeed) {
    const std::pair<std::string, std::string> cases[] = {
        {"birth date,balance,method", "plan.csv, line 1: the column \"first payment\" is missing."},
        {"balance,Account_Balance", "plan.csv, line 1: the column \"balance\" is there twice."},
        {"\xFF\xFEn", "plan.csv, line 1: the names of the columns are not in UTF-8."},
        {"name;balance",
         "plan.csv, line 1: there is no column \"name;balance\". Columns are name, birth date, "
         "balance, "
         "first payment, method, frequency, lump sum, payments from, length, number, amount, joint, "
         "spouse's birth date, rates."}};
    for (const auto& [header, message] : cases) {
        std::istringstream table(header);
        std::string said;
        try {
            read_csv(table, [](const CsvRecord& record) { return Columns(record, "plan.csv"), true; });
        } catch (const InputError& error) {
            said = error.what();
        }
        EXPECT_EQ(said, message);
    }
}

TEST(Cells, HaveMonthsAsPeopleAndSpreadsheetsWriteThem) {
    for (const char* july : {"7/2020", "07/2020", "2020-07", "July 2020", "july, 2020", "Jul-20",
                             "7/1/2020", "7/1/20", "2020-07-31", "July 1, 2020", "2020 July"}) {
        const auto read = read_month(july);
        ASSERT_TRUE(read) << july;
        EXPECT_EQ(read->month, 7) << july;
        EXPECT_EQ(read->year, 2020) << july;
    }
    for (const char* none : {"", "7", "2020", "7/20", "Ju 2020", "13/2020", "0/2020", "7/2020?",
                             "2/30/2020", "7//", "July", "7/2020/1", "20200701", "July 07 07 2020"}) {
        EXPECT_FALSE(read_month(none)) << none;
    }
}

// KELVAR_TABLES says how many; the sanitizers take more than a quick test run.
TEST_F(Tables, MayHoldAnything) {
    const std::string plan =
        "Ann,6/15/50,\"$250,000.00\",July 2020,periodic,monthly,,,life,,,,1/1/1975,5;6\r\n"
        "\"Bob \"\"B\"\"\",06-15-1955,9e4,2020-07,Partial,Annual,12.5%,Feb-21,amount,,5000,no,,all\n"
        "Ren\xC3\xA9,6/15/1960,1,7/2020,lump sum,,,,number,3,0.01,,,8\r";
    const std::string marks = "-.,;/%$\"\r\n \xC2\xE9" + std::string(1, '\0');
    std::mt19937 random(20261122);
    const auto below = [&](std::size_t end) { return random() % end; };
    const char* const wanted = std::getenv("KELVAR_TABLES");
    const int rounds = wanted == nullptr ? 2'000 : std::atoi(wanted);
    int accepted = 0;
    for (int round = 0; round < rounds && !HasFailure(); ++round) {
        std::string text = plan;
        for (std::size_t changes = 1 + below(3); changes > 0; --changes) {
            const char mark = below(2) != 0 ? marks[below(marks.size())] : static_cast<char>(random());
            const std::string pieces[] = {"", std::to_string(random()),
                                          text.substr(below(text.size()), below(50)),
                                          std::string(1, mark), std::string(below(5000), mark)};
            text.replace(below(text.size()), below(3), pieces[below(std::size(pieces))]);
        }
        for (const Participant& participant : participants_of(text, *database)) {
            const auto projections = projections_of(participant, today);
            EXPECT_NE(participant.refusal.empty(), projections.empty()) << text;
            accepted += projections.empty() ? 0 : 1;
            std::istringstream lines(result_lines(participant, projections));
            read_csv(lines, [&](const CsvRecord& record) {
                EXPECT_EQ(record.cells.size(), 14U) << text;
                EXPECT_EQ(record.cells[1], participant.name) << text;
                EXPECT_TRUE(is_utf8(record.cells[1])) << text;
                return true;
            });
            payment_lines(participant, projections);
        }
    }
    EXPECT_GT(accepted, rounds);
}

}  // namespace
}  // namespace kelvar::test
