#include "input/rules/distribution_rules.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "tests/support/fake_screens.h"
#include "tests/support/sql.h"
#include "tests/support/temporary_program_folder.h"

namespace kelvar::test {
namespace {

using namespace std::chrono_literals;

const Date today = 2026y / 7 / 15;

// Message and field of a refusal; both empty when there is none.
using Told = std::pair<std::string, std::string>;

Told told(const Check& check) {
    return check ? Told{check->text, check->field} : Told{};
}

const Told accepted;
const Told no_amount{"Invalid partial amount certain!", "txtpartial"};
const Told bad_amount{"Invalid partial lump sum amount.", "txtpartial"};
const Told no_frequency{"Invalid periodic payments selection. Select frequency of period payments.",
                        "chkpartial_0"};
const Told beyond{"Your selection will result in distribution payments beyound your life expectancy",
                  "cmbscnyear"};
const Told too_early{
    "Periodic payments cannot commence prior to the initial partial lump sum (first payment) date!",
    "cmbscnyear"};
const Told too_little{
    "Your partial amount certain will be below your minimum distribution for that year!", "txtpartial"};

class PartialLumpSum : public ::testing::Test {
protected:
    // Paid in September 2026 out of 250,000 dollars, the rest from the other month on.
    void enter(Date birth, std::int16_t month, std::int16_t year) {
        scenario = {};
        scenario.birth_date = birth;
        scenario.first_pay_month = 9;
        scenario.first_pay_year = 2026;
        scenario.scenario_month = month;
        scenario.scenario_year = year;
        scenario.method = partial_lump_sum;
        scenario.frequency = 12;
        scenario.present_value = 250000.0;
        scenario.partial_amount = 50000.0;
    }

    TemporaryProgramFolder folder;
    FakeScreens screens;
    Module1 module1{screens, folder.path(), [] { return today; }};
    Scenario& scenario = module1.scenario;
};

TEST_F(PartialLumpSum, IsRefusedForTheFirstFaultOnly) {
    module1.open_database();
    struct Case {
        const char* name;
        Date birth;
        std::int16_t month, year, frequency;
        double amount;
        Told expected;
        const char* text = "1.00";
    };
    const Date old = 1950y / 6 / 15;
    const Date young = 1970y / 6 / 15;
    const Date next_month = 1970y / 8 / 20;
    // Life expectancies: 99.7 at 76, 88 at 66, 86.6 at 56. Minimum distributions: 250,000 / 23.7 at 76
    // is 10,548.52(32), / 24.6 at 75 is 10,162.60(16), / 29.1 at 70 is 8,591.06(53).
    const Case cases[] = {
        {"empty", old, 9, 2050, 0, 0.0, no_amount, ""},
        {"no number", old, 9, 2050, 0, 0.0, no_amount, "5x"},
        {"nothing", old, 9, 2050, 0, 0.0, bad_amount},
        {"all of it", old, 9, 2050, 0, 250000.0, bad_amount},
        {"no frequency", old, 9, 2050, 0, 1.0, no_frequency},
        {"beyond life", old, 9, 2050, 1, 1.0, beyond},
        {"year before, later month", old, 12, 2025, 1, 1.0, too_early},
        {"nothing chosen", old, 0, 0, 1, 1.0, too_early},
        {"month before", old, 8, 2026, 1, 1.0, too_early},
        {"same month", old, 9, 2026, 1, 1.0, too_early},
        {"month after", old, 10, 2026, 1, 1.0, accepted},
        {"76, born in the month of payment, below", 1950y / 9 / 15, 1, 2027, 1, 10548.52, too_little},
        {"76, born in the month of payment", 1950y / 9 / 15, 1, 2027, 1, 10548.53, accepted},
        {"75, below", 1950y / 10 / 1, 1, 2027, 1, 10162.60, too_little},
        {"75", 1950y / 10 / 1, 1, 2027, 1, 10162.61, accepted},
        {"on the day of 70½, below", 1956y / 3 / 1, 1, 2027, 1, 8591.06, too_little},
        {"on the day of 70½", 1956y / 3 / 1, 1, 2027, 1, 8591.07, accepted},
        {"a day before it", 1956y / 3 / 2, 1, 2027, 1, 1.0, accepted},
        {"87 in 2057", young, 1, 2057, 1, 1.0, beyond},
        {"86 in 2056", young, 12, 2056, 1, 1.0, accepted},
        {"born this month", 1970y / 7 / 31, 1, 2057, 1, 1.0, beyond},
        {"born next month, not yet 87", next_month, 12, 2057, 1, 1.0, accepted},
        {"born next month, 87", next_month, 1, 2058, 1, 1.0, beyond},
        {"just the life expectancy", 1960y / 6 / 15, 1, 2048, 1, 1.0, beyond},
        {"above 100", young, 1, 2071, 1, 1.0, beyond}};
    for (const Case& c : cases) {
        enter(c.birth, c.month, c.year);
        scenario.frequency = c.frequency;
        scenario.partial_amount = c.amount;
        EXPECT_EQ(told(check_partial(module1, c.text)), c.expected)
            << c.name << ": born " << date_text(c.birth) << ", rest from " << c.month << '/' << c.year
            << ", \"" << c.text << "\", $" << c.amount << ", frequency " << c.frequency;
    }
    EXPECT_TRUE(screens.messages.empty()) << "the screen shows the refusal, nobody else";
    EXPECT_TRUE(screens.questions.empty());
}

TEST_F(PartialLumpSum, BelowSeventyTheUserDecides) {
    run_sql(folder.database(), "UPDATE lifexp SET multiple = 0.5");
    module1.open_database();
    const std::string question =
        "Your selection will result in distribution payments beyond your life expectancy. Do you wish "
        "to re-enter your selection?";
    struct Case {
        const char* name;
        Date birth;
        bool asked, enter_again;
        Told expected;
    };
    // The payments commence together with the first one, which is refused where nobody is asked.
    // Their age is that of July, a birthday later than at the first payment.
    for (const Case& c : {Case{"69, stays", 1958y / 6 / 15, true, false, accepted},
                          Case{"69, enters again", 1958y / 6 / 15, true, true, {"", "cmbscnyear"}},
                          Case{"70", 1957y / 6 / 15, false, false, beyond},
                          Case{"not beyond", 1957y / 8 / 15, false, false, too_early}}) {
        enter(c.birth, 3, 2027);
        scenario.first_pay_month = 3;
        scenario.first_pay_year = 2027;
        screens.next_answer = c.enter_again;
        screens.questions.clear();
        EXPECT_EQ(told(check_partial(module1, "50,000.00")), c.expected) << c.name;
        EXPECT_EQ(screens.questions, std::vector<std::string>(c.asked ? 1 : 0, question)) << c.name;
        EXPECT_EQ(scenario.answer, c.enter_again ? 1 : 0) << c.name;
    }
    EXPECT_TRUE(screens.messages.empty());
}

TEST_F(PartialLumpSum, AgesAreWorkedOutAnewAndAnUnknownAgeChangesNothing) {
    run_sql(folder.database(), "DELETE FROM lifexp WHERE age = 75");
    module1.open_database();
    struct Case {
        const char* name;
        Date birth;
        int current_age;
        double life_expectancy_age;
    };
    // Payment in the present month: the table is entered with the age on the day.
    for (const Case& c : {Case{"65", 1960y / 7 / 20, 66, 87.9}, Case{"66", 1960y / 7 / 14, 66, 88.0},
                          Case{"born next month", 1960y / 8 / 1, 65, 87.9},
                          Case{"75, not in the table", 1950y / 7 / 20, 76, 99.5}}) {
        enter(c.birth, 10, 2026);
        scenario.first_pay_month = 7;
        scenario.current_age = 1;
        scenario.lookup_age = 80;  // as the length screen left it
        scenario.life_expectancy_age = 99.5;
        EXPECT_EQ(told(check_partial(module1, "50,000.00")), accepted) << c.name;
        EXPECT_EQ(scenario.current_age, c.current_age) << c.name;
        EXPECT_DOUBLE_EQ(scenario.life_expectancy_age, c.life_expectancy_age) << c.name;
    }
}

TEST(PartialAmount, IsAboveZeroAndBelowTheBalance) {
    Scenario scenario;
    scenario.present_value = 250000.0;
    for (const double amount : {-0.01, 0.0, 0.01, 249999.99, 250000.0, 250000.01}) {
        scenario.partial_amount = amount;
        const bool valid = amount == 0.01 || amount == 249999.99;
        EXPECT_EQ(told(partial_msg(scenario)), valid ? accepted : bad_amount) << amount;
    }
}

TEST(PartialAmount, IsReadInCentsWithItsSign) {
    const std::pair<const char*, double> amounts[] = {{"1,234.567", 1234.57},
                                                      {"12500.005", 12500.01},
                                                      {"-500", -500.0},
                                                      {"0.004", 0.0},
                                                      {"9999999999999.99", 9999999999999.99}};
    for (const auto& [text, expected] : amounts) {
        EXPECT_EQ(read_partial_amount(text), expected) << '"' << text << '"';
    }
    for (const char* text :
         {"10000000000000", "-9999999999999.995", "-1e13", "1e400", "50,00", "50%", "abc", ""}) {
        EXPECT_EQ(read_partial_amount(text), std::nullopt) << '"' << text << '"';
    }
}

TEST(PartialPercentage, IsAboveZeroAndBelow100) {
    const std::pair<const char*, double> percentages[] = {
        {"25", 25.0}, {" 12.5 ", 12.5}, {"0.01", 0.01}, {"99.99", 99.99}};
    for (const auto& [text, expected] : percentages) {
        EXPECT_EQ(read_percentage(text), expected) << '"' << text << '"';
    }
    for (const char* text : {"100", "1e400", "0", "-5", "25%", "abc", ""}) {
        EXPECT_EQ(read_percentage(text), std::nullopt) << '"' << text << '"';
    }
}

TEST(PartialPercentage, AndAmountFollowEachOther) {
    EXPECT_EQ(amount_of_percentage(33333.33, 33.0), 11000.0);  // 10,999.9989
    EXPECT_EQ(amount_of_percentage(100.5, 1.0), 1.01);         // 1.005
    EXPECT_EQ(percentage_of_amount(250000.0, 62500.0), "25.00");
    EXPECT_EQ(percentage_of_amount(250000.0, 12500.0), "05.00");
    EXPECT_EQ(percentage_of_amount(80.0, 0.1), "00.13");  // 0.125
    EXPECT_EQ(percentage_of_amount(250000.0, 300000.0), "120.00");
}

// Each offered year with its first and last month, such as "2026: 9-12".
std::vector<std::string> offers(const Scenario& scenario) {
    std::vector<std::string> offered;
    for (const int year : scenario_years(scenario, today)) {
        const std::vector<int> months = scenario_months(scenario, year, today);
        offered.push_back(months.empty() ? fmt::format("{}: none", year)
                                         : fmt::format("{}: {}-{}", year, months[0], months.back()));
    }
    return offered;
}

TEST(Commencement, IsOfferedAfterTheFirstPaymentUntilTheDeadline) {
    struct Case {
        const char* name;
        Date birth;
        std::int16_t current_age, month, year;
        std::vector<std::string> expected;
    };
    const Date coming = 1957y / 6 / 15;  // 70½ in December 2027
    const Date passed = 1956y / 1 / 14;  // 70½ yesterday
    const Case cases[] = {
        {"coming", coming, 69, 8, 2026, {"2026: 9-12", "2027: 1-12", "2028: 1-3"}},
        {"December", coming, 69, 12, 2026, {"2027: 1-12", "2028: 1-3"}},
        {"December, one year left", coming, 69, 12, 2027, {"2028: 1-3"}},
        {"last year", coming, 69, 3, 2028, {"2028: 4-12", "2029: 1-3"}},
        {"today, last year", 1956y / 1 / 15, 70, 2, 2027, {"2027: 3-12", "2028: 1-3"}},
        {"passed", passed, 70, 8, 2026, {"2026: 9-12", "2027: 1-3"}},
        {"passed, last year", passed, 70, 2, 2027, {"2027: 3-3"}},
        {"passed, last month", passed, 70, 3, 2027, {"2027: none"}},
        {"71, last year", 1955y / 7 / 1, 71, 3, 2027, {"2027: 4-12", "2028: 1-3"}},
        {"no date of birth", no_date, 0, 8, 2026, {}}};
    for (const Case& c : cases) {
        Scenario scenario;
        scenario.birth_date = c.birth;
        scenario.current_age = c.current_age;
        scenario.first_pay_month = c.month;
        scenario.first_pay_year = c.year;
        EXPECT_EQ(offers(scenario), c.expected)
            << c.name << ": born " << date_text(c.birth) << ", age " << c.current_age
            << ", first payment " << c.month << '/' << c.year;
    }
}

TEST(Commencement, HasNoMonthsInAYearThatIsNotOffered) {
    Scenario scenario;
    scenario.birth_date = 1957y / 6 / 15;
    scenario.first_pay_month = 8;
    scenario.first_pay_year = 2026;
    for (const int year : {0, 2025, 2029}) {
        EXPECT_EQ(scenario_months(scenario, year, today), std::vector<int>{}) << year;
    }
}

TEST(PeriodicPayments, NeedAFrequency) {
    Scenario scenario;
    EXPECT_EQ(told(check_periodic(scenario)), Told(no_frequency.first, "chkperiod_0"));
    for (const auto& [box, expected] : {std::pair{0, 12}, {1, 4}, {2, 2}, {3, 1}}) {
        scenario.frequency = frequency_of_box(box);
        EXPECT_EQ(scenario.frequency, expected) << "box " << box;
        EXPECT_EQ(told(check_periodic(scenario)), accepted) << "box " << box;
    }
}

}  // namespace
}  // namespace kelvar::test
