// The bench for figures as a program of its own. Expected figures: decimal arithmetic, as in
// projection_test.cpp.
#include <gtest/gtest.h>
#include <stdio.h>
#include <sys/wait.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/temporary_program_folder.h"

namespace kelvar::test {
namespace {

struct Output {
    std::vector<std::string> lines;  // of standard output and standard error
    int exit_code = 0;
};

Output run(const std::string& input, const std::string& standard_output = "") {
    const TemporaryProgramFolder folder;
    const std::filesystem::path file = folder.path() / "scenarios.csv";
    std::ofstream(file) << input;
    FILE* pipe =
        popen((KELVAR_PROJECT_SCENARIOS " 2>&1 < " + file.string() + standard_output).c_str(), "r");
    Output output;
    for (char line[512]; fgets(line, sizeof line, pipe) != nullptr;) {
        output.lines.emplace_back(line).pop_back();
    }
    output.exit_code = WEXITSTATUS(pclose(pipe));
    return output;
}

// Fields as numbers where they are, so that 256270.90000000002 is 256270.90.
void expect_fields(const std::string& line, const std::string& expected) {
    std::istringstream fields(line);
    std::istringstream figures(expected);
    std::string field;
    for (std::string figure; std::getline(figures, figure, ',');) {
        ASSERT_TRUE(std::getline(fields, field, ',')) << line;
        if (figure.find('.') == std::string::npos) {
            EXPECT_EQ(field, figure) << line;
        } else {
            EXPECT_NEAR(std::stod(field), std::stod(figure), 1e-8) << line;
        }
    }
    EXPECT_FALSE(std::getline(fields, field, ',')) << line;
}

const std::string header =
    "scenario,today,rate,method,present_value,first_pay_month,first_pay_year,scenario_month,"
    "scenario_year,frequency,length_option,number_of_payments,fixed_amount,partial_amount,lookup_age,"
    "life_expectancy_age\r\n";

TEST(ProjectScenarios, GivesTheFiguresWorkedOutApart) {
    const Output output = run("\xEF\xBB\xBF" + header +
                              "life,2020-01-15,5,2,250000,7,2020,0,0,12,3,349,0,0,70,99.1\n"
                              "part,2020-01-31,5,3,250000,1,2020,2,2020,4,2,0,9000.005,40000,70,99.1\n"
                              "over,2020-01-15,7,2,250000,7,2020,0,0,12,2,0,1400,0,70,99.1\n"
                              "lump,2020-01-15,8,1,250000,7,2020,0,0,0,0,0,0,0,0,0\n"
                              "none,2020-01-15,5,2,100,7,2025,0,0,12,3,300,0,0,65,99.1\n"
                              "tiny,2020-01-15,0,2,100,1,2020,0,0,4,1,5,0,0,70,99.1\n");
    ASSERT_EQ(output.exit_code, 0);
    const std::pair<std::size_t, const char*> expected[] = {
        {0,
         "scenario,start_value,second_value,number_of_payments,total_paid,outcome,opening,earnings,"
         "fees,"
         "periods_without_fee,payments,rounding,closing"},
        {1, "scenario,number,remaining,startbalance,payment,remainbalance,Month,Year"},
        {2, "life,256270.90,0,349,578796.05,complete,250000,331157.41,2361.42,0,578796.05,0.06,0"},
        {3, "life,1,348,256270.90,734.30,255536.60,July,2020"},
        {9, "life,7,342,258300.14,753.06,257547.08,January,2021"},
        {351, "life,349,0,3618.47,3618.47,0,July,2049"},
        {352, "part,250000,210829.49,28,286949.69,complete,250000,37496.10,546.41,0,286949.69,0,0"},
        {353, "part,1,27,210829.49,9000.01,201829.48,February,2020"},
        {380, "part,28,0,3949.42,3949.42,0,November,2026"},
        {381,
         "over,258839.35,0,350,490000,limit "
         "exceeded,250000,614216.77,2368.22,0,490000,-0.01,371848.54"},
        {731, "over,350,0,373248.54,1400,371848.54,August,2049"},
        {732, "lump,260148.11,0,0,260148.11,complete,250000,10173.04,24.93,0,260148.11,0,0"},
        {733, "none,-308.45,0,0,0,nothing left,100,31.66,440.11,0,0,0,-308.45"},
        {734, "tiny,100,0,5,100.0043835616438,complete,100,0,0,4,100,0,0"},
        {739, "tiny,5,0,20.0043835616438,20.0043835616438,0,January,2021"}};
    ASSERT_EQ(output.lines.size(), 740U);
    for (const auto& [line, figures] : expected) {
        expect_fields(output.lines[line], figures);
    }
}

TEST(ProjectScenarios, NamesTheBadLineAndItsColumn) {
    const std::string good = "a,2020-01-15,5,2,250000,7,2020,0,0,12,3,349,0,0,70,99.1\n";
    const std::pair<std::string, const char*> cases[] = {
        {"today,rate\n", "line 1, column scenario: is missing"},
        {"scenario,today,rate,method,present_value,first_pay_month,colour\n",
         "line 1, column colour: there is no such column"},
        {"rate,rate\n", "line 1, column rate: is there twice"},
        {header + good + "b,2020-01-15,5\n", "line 3, column method: 3 fields, not 16"},
        {header + "a,2020-02-30,5,1,9,7,2020,0,0,12,3,9,0,0,70,99\n",
         "line 2, column today: '2020-02-30' is no date like 2020-01-15"},
        {header + "a,+202-01-15,5,1,9,7,2020,0,0,12,3,9,0,0,70,99\n",
         "line 2, column today: '+202-01-15' is no date like 2020-01-15"},
        {header + good + "a,2020-01-15,100,1,9,7,9000,0,0,12,3,9,0,0,70,99\n",
         "line 3, column rate: the account grows beyond any number"},
        {header + "a,2020-01-15,100,2,250000,7,2020,0,0,1,1,7900,0,0,70,99\n",
         "line 2, column rate: the account grows beyond any number"},
        {header + "a,2020-01-15,5%,1,9,7,2020,0,0,12,3,9,0,0,70,99\n",
         "line 2, column rate: '5%' is not a number"},
        {header + "a,2020-01-15,5,1,9,13,2020,0,0,12,3,9,0,0,70,99\n",
         "line 2, column first_pay_month: '13' is not a whole number from 1 to 12"},
        {header + "a,2020-01-15,5,1,9,7,2020,0,0,12,3,9.5,0,0,70,99\n",
         "line 2, column number_of_payments: '9.5' is not a whole number from 0 to 32767"},
        {header + "a,2020-01-15,5,2,9,7,2019,0,0,12,3,9,0,0,70,99\n",
         "line 2, column first_pay_year: the first payment lies before today"},
        {header + "a,2020-01-15,5,2,9,7,2020,0,0,3,3,9,0,0,70,99\n",
         "line 2, column frequency: must be 1, 2, 4 or 12 for this method"},
        {header + "a,2020-01-15,5,2,9,7,2020,0,0,1,1,7980,0,0,70,99\n",
         "line 2, column number_of_payments: the payments go beyond the year 9999"},
        {header + "a,2020-01-15,5,3,9,7,2020,6,2020,12,3,9,0,0,70,99\n",
         "line 2, column scenario_year: the remaining payments lie before the first payment"}};
    for (const auto& [input, message] : cases) {
        const Output output = run(input);
        EXPECT_EQ(output.exit_code, 2) << message;
        ASSERT_FALSE(output.lines.empty()) << message;
        EXPECT_EQ(output.lines.back(), message);
    }
}

TEST(ProjectScenarios, SaysWhenItsOutputIsLost) {
    for (const char* lost : {" >/dev/full", " >&-"}) {
        const Output output = run(header, lost);
        EXPECT_EQ(output.exit_code, 1) << lost;
        ASSERT_EQ(output.lines.size(), 1U) << lost;
        EXPECT_TRUE(output.lines[0].starts_with("standard output: ")) << output.lines[0];
    }
}

}  // namespace
}  // namespace kelvar::test
