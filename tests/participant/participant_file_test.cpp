#include "participant/participant_file.h"

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>
#include <string>
#include <utility>

#include "core/plan.h"
#include "tests/support/temporary_program_folder.h"

namespace kelvar::test {
namespace {

using std::chrono::year;

const Entries ann{.name = "Ann \"Nan\" Müller",
                  .birth_date = year{1955} / 4 / 15,
                  .present_value = 318440.17,
                  .first_pay_month = 3,
                  .first_pay_year = 2027,
                  .method = partial_lump_sum,
                  .frequency = 2,
                  .partial_percent = 12.5,
                  .scenario_month = 7,
                  .scenario_year = 2028,
                  .length_option = by_life_expectancy,
                  .joint_life = true,
                  .number_of_payments = 40,
                  .fixed_amount = 9000,
                  .spouse_birth_date = year{1972} / 12 / 31,
                  .selected_rates = {{5, 6.5}},
                  .all_rates = false,
                  .shown_rate = 6.5,
                  .choices = {{.method = lump_sum}, {.method = periodic_payments, .shown_rate = 5}}};
const std::string ann_text = R"({
    "format": 1,
    "name": "Ann \"Nan\" Müller",
    "birth_date": "04/15/1955",
    "present_value": 318440.17,
    "first_pay_month": 3,
    "first_pay_year": 2027,
    "method": "amount certain with periodic payments",
    "frequency": "Semi-Annually",
    "partial_percent": 12.5,
    "scenario_month": 7,
    "scenario_year": 2028,
    "length_option": "life expectancy",
    "joint_life": true,
    "number_of_payments": 40,
    "fixed_amount": 9000,
    "spouse_birth_date": "12/31/1972",
    "selected_rates": [5, 6.5],
    "all_rates": false,
    "shown_rate": 6.5,
    "choices": [
        {
            "method": "lump sum"
        },
        {
            "method": "periodic payments",
            "shown_rate": 5
        }
    ]
}
)";

// What is read, or why it is not.
template <class Read, class... From>
std::string said_of(Read read, const From&... from) try {
    return participant_text(read(from...));
} catch (const ParticipantFileError& error) {
    return error.what();
}

TEST(ParticipantFile, HoldsWhatWasEnteredForPeopleToRead) {
    EXPECT_EQ(participant_text(ann), ann_text);
    EXPECT_EQ(participant_of("\xEF\xBB\xBF" + ann_text), ann);
    EXPECT_EQ(participant_text({}), "{\n    \"format\": 1\n}\n") << "nothing was entered";
    EXPECT_EQ(participant_text({.partial_percent = 0.00001, .selected_rates = {{-1e-7, 0}}}),
              "{\n    \"format\": 1,\n    \"partial_percent\": 0.00001,\n    \"selected_rates\": "
              "[-0.0000001, 0]\n}\n");
    const double amounts[] = {9'999'999'999'999.99, -1e12, 0.3, 1.1, 0.0};
    Entries entries = ann;
    entries.name = "üüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüü";
    for (std::size_t round = 0; round < 180; ++round) {
        entries.present_value = amounts[round % std::size(amounts)];
        entries.frequency = plan::frequencies[round % std::size(plan::frequencies)].payments_per_year;
        entries.method = static_cast<Method>(1 + round % 3);
        entries.length_option = static_cast<LengthOption>(1 + round / 60);
        EXPECT_EQ(participant_of(participant_text(entries)), entries) << participant_text(entries);
    }
}

// What is said of an entry, then, after a "<-", values of it.
const std::string faulty_values =
    R"("name" in line 3 must be one line of at most 60 characters, without tabs <- 5 "a\u0007" "a\u0085" "6123456789012345678901234567890123456789012345678901234567890"
"birth_date" in line 3 must be a date such as "04/15/1955" <- "02/29/1955" "04/15/55" "04/15/55__" "4/15/1955" 1955
"spouse_birth_date" in line 3 must be a date such as "04/15/1955" <- []
"present_value" in line 3 must be an amount in dollars and cents such as 318440.17 <- "250000" 1e5 1E0 0.005 10000000000000
"partial_amount" in line 3 must be an amount in dollars and cents such as 318440.17 <- -10000000000000 99999999999999999999
"fixed_amount" in line 3 must be an amount in dollars and cents such as 318440.17 <- {}
"first_pay_month" in line 3 must be a whole number from 1 to 12 <- 0 13 7.5 1e0 "July"
"first_pay_year" in line 3 must be a whole number from 1 to 9999 <- 0 10000
"scenario_month" in line 3 must be a whole number from 1 to 12 <- 13
"scenario_year" in line 3 must be a whole number from 1 to 9999 <- 0
"number_of_payments" in line 3 must be a whole number from 0 to 99999999 <- -1 100000000
"method" in line 3 must be one of "lump sum", "periodic payments", "amount certain with periodic payments" <- 2 "rollover"
"frequency" in line 3 must be one of "Monthly", "Quarterly", "Semi-Annually", "Annually" <- 12 "monthly"
"length_option" in line 3 must be one of "number of payments", "dollar amount", "life expectancy" <- null
"joint_life" in line 3 must be true or false <- 1
"all_rates" in line 3 must be true or false <- "true"
"partial_percent" in line 3 must be a percentage above 0 and below 100 <- 0 100
"selected_rates" in line 3 must be a list of percentages such as [5, 6.5], the lowest first <- 5 [5,5] [6,5] [100] [5,"6"] [[5]] [{}]
"shown_rate" in line 3 must be a percentage such as 6.5 <- -100 {"rate":5}
"format" in line 3 is there twice <- 1
"colo\nur" in line 3 is unknown <- 1
)";

TEST(ParticipantFile, SaysWhatIsWrongAndWhere) {
    const std::string refused = "Ann.kelvar is not a participant's file: ";
    std::istringstream lines(faulty_values);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t arrow = line.find(" <- ");
        std::istringstream values(line.substr(arrow + 4));
        for (std::string value; values >> value;) {
            const std::string name = line.substr(0, line.find(' '));
            const std::string text = fmt::format("{{\n\"format\": 1,\n{}:\n{}}}", name, value);
            EXPECT_EQ(said_of(participant_of, text, "Ann.kelvar"),
                      refused + line.substr(0, arrow) + '.');
        }
    }
    const std::string not_choices =
        "\"choices\" in line 1 must be a list of at most six results in braces";
    const auto with = [](const std::string& choices) {
        return "{\"format\": 1, \"choices\": " + choices + "}";
    };
    const std::pair<std::string, std::string> texts[] = {
        {with("{}"), not_choices},
        {with("[5]"), not_choices},
        {with("[[]]"), not_choices},
        {with("[{},{},{},{},{},{},{}]"), not_choices},
        {with("[{\"name\": \"Ann\"}]"), "\"name\" in line 1 is unknown"},
        {with("[{\"method\": {}}]"),
         "\"method\" in line 1 must be one of \"lump sum\", \"periodic payments\", \"amount certain "
         "with "
         "periodic payments\""},
        {with("[{\"frequency\": \"Monthly\", \"frequency\": \"Monthly\"}]"),
         "\"frequency\" in line 1 is there twice"},
        {"", "line 1 cannot be read as JSON"},
        {"{\n\"name\": \"\xFF\"}", "line 2 cannot be read as JSON"},
        {"{\n\"name\": \"a\nb\"}", "line 2 cannot be read as JSON"},
        {"{\n\"shown_rate\": NaN\n", "line 2 cannot be read as JSON"},
        {ann_text + std::string(1, '\0'), "line 31 cannot be read as JSON"},
        {ann_text + "{}", "line 31 cannot be read as JSON"},
        {std::string(10'000, '['), "it must begin with \"{\""},
        {"{\"format\": 2, \"colour\": 1}",
         "\"format\" in line 1 must be 1, the only format that this version of Kelvar reads"},
        {"{\"name\": \"Ann\"}", "\"format\" is missing"},
        {"{\"format\": 1, \"partial_amount\": 1, \"partial_percent\": 1}",
         "\"partial_amount\" and \"partial_percent\" cannot both be there"},
        {"{\"" + std::string(59, 'a') + "ü\": 1}",
         '"' + std::string(59, 'a') + "\uFFFD\" in line 1 is unknown"}};
    for (const auto& [text, sentence] : texts) {
        EXPECT_EQ(said_of(participant_of, text, "Ann.kelvar"), refused + sentence + '.');
    }
}

TEST(ParticipantFile, IsAnOrdinaryFileOfAtMost64Kilobytes) {
    const TemporaryProgramFolder folder;
    const std::string file = folder.path() / "Ann.kelvar";
    const std::string pipe = folder.path() / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(said_of(read_participant, file), file + " cannot be read: No such file or directory.");
    std::ofstream(file) << ann_text << std::string(64 * 1024 - ann_text.size(), ' ');
    EXPECT_EQ(said_of(read_participant, file), ann_text);
    std::filesystem::resize_file(file, 10);
    EXPECT_EQ(said_of(read_participant, file),
              file + " is not a participant's file: line 2 cannot be read as JSON.");
    std::filesystem::resize_file(file, 64 * 1024 + 1);
    for (const std::string& other : {file, pipe, folder.path().string(), std::string("/dev/zero")}) {
        EXPECT_EQ(said_of(read_participant, other),
                  other + " is not a participant's file: it is no ordinary file of at most 64 KB.");
    }
}

// Either all of a text is taken, so that it can be written and read again, or it is refused.
TEST(ParticipantFile, MayHoldAnything) {
    const std::string marks = "-.eE\"\\[]{},:\n0\xC2" + std::string(1, '\0');
    std::mt19937 random(20261122);
    const auto below = [&](std::size_t end) { return random() % end; };
    int taken = 0;
    for (int round = 0; round < 10'000; ++round) {
        std::string text = ann_text;
        for (std::size_t changes = 1 + below(2); changes > 0; --changes) {
            const char mark = below(2) != 0 ? marks[below(marks.size())] : static_cast<char>(random());
            const std::string pieces[] = {"", std::to_string(below(100)),
                                          text.substr(below(text.size()), below(50)),
                                          std::string(1, mark), std::string(below(5000), mark)};
            text.replace(below(text.size()), below(3), pieces[below(std::size(pieces))]);
        }
        try {
            const Entries entries = participant_of(text);
            ++taken;
            EXPECT_EQ(participant_of(participant_text(entries)), entries) << text;
        } catch (const ParticipantFileError&) {
        }
    }
    EXPECT_GT(taken, 500);
}

}  // namespace
}  // namespace kelvar::test
