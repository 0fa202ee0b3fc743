#include "input/rules/next_checks.h"

#include <gtest/gtest.h>

#include <optional>

#include "input/rules/frequency.h"
#include "tests/support/sql.h"
#include "tests/support/temporary_program_folder.h"
#include "tests/support/told.h"

namespace kelvar::test {
namespace {

using namespace std::chrono_literals;

const Date today = 2026y / 7 / 15;

TEST(ParticipantData, IsRefusedForTheFirstFaultOnly) {
    const std::string month = "Invalid month that you wish to begin payments. [Cmbfrstmonth]";
    const std::string value = "Invalid present value of the account. [txtcurvalue]";
    const std::string birth = "Invalid birth date. [mskbirth]";
    const std::optional<double> none;
    const char* const unfilled = "__/__/____";
    struct Case {
        const char* name;
        ParticipantEntry entry;
        std::string expected;
    };
    const Case cases[] = {{"everything wrong", {6, 2026, none, unfilled}, month},
                          {"last year, later month", {12, 2025, 1.0, "06/15/1950"}, month},
                          {"last month, no year offered", {6, 0, none, unfilled}, month},
                          {"this month, no year offered", {7, 0, none, unfilled}, value},
                          {"value of 0", {7, 2026, 0.0, "06/15/1950"}, value},
                          {"less than half a cent", {7, 2026, 0.004, "06/15/1950"}, value},
                          {"value no amount", {7, 2026, none, "06/15/1950"}, value},
                          {"date missing", {7, 2026, 25000.0, unfilled}, birth},
                          {"this month", {7, 2026, 25000.0, "06/15/1950"}, accepted},
                          {"earlier month of next year", {1, 2027, 1.0, "06/15/1950"}, accepted},
                          {"half a cent", {7, 2026, 0.005, "06/15/1950"}, accepted}};
    for (const Case& c : cases) {
        EXPECT_EQ(told(chk_fields(c.entry, today)), c.expected)
            << c.name << ": " << c.entry.month << '/' << c.entry.year << ", $"
            << c.entry.value.value_or(-1.0) << ", \"" << c.entry.birth_text << '"';
    }
}

const std::string no_amount = "Invalid partial amount certain! [txtpartial]";
const std::string bad_amount = "Invalid partial lump sum amount. [txtpartial]";
const std::string no_frequency =
    "Invalid periodic payments selection. Select frequency of period payments.";
const std::string beyond =
    "Your selection will result in distribution payments beyound your life expectancy [cmbscnyear]";
const std::string question =
    "asked: Your selection will result in distribution payments beyond your life expectancy. Do you "
    "wish to re-enter your selection? [cmbscnyear]";
const std::string too_early =
    "Periodic payments cannot commence prior to the initial partial lump sum (first payment) date! "
    "[cmbscnyear]";
const std::string too_little =
    "Your partial amount certain will be below your minimum distribution for that year! [txtpartial]";

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
    Scenario scenario;
};

TEST_F(PartialLumpSum, IsRefusedForTheFirstFaultOnly) {
    Database database(folder.database());
    struct Case {
        const char* name;
        Date birth;
        std::int16_t month, year, frequency;
        double amount;
        std::string expected;
        std::optional<double> typed = 1.0;
    };
    const Date old = 1950y / 6 / 15;
    const Date young = 1970y / 6 / 15;
    const Date next_month = 1970y / 8 / 20;
    // Life expectancies: 99.7 at 76, 88 at 66, 86.6 at 56. Minimum distributions: 250,000 / 23.7 at 76
    // is 10,548.52(32), / 24.6 at 75 is 10,162.60(16), / 29.1 at 70 is 8,591.06(53).
    const Case cases[] = {
        {"no amount", old, 9, 2050, 0, 0.0, no_amount, std::nullopt},
        {"nothing", old, 9, 2050, 0, 0.0, bad_amount},
        {"all of it", old, 9, 2050, 0, 250000.0, bad_amount},
        {"no frequency", old, 9, 2050, 0, 1.0, no_frequency + " [chkpartial_0]"},
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
        {"85, just as much as 250,000 / 16", 1941y / 6 / 15, 1, 2027, 1, 15625.0, accepted},
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
        EXPECT_EQ(told(check_partial(scenario, database, c.typed, today)), c.expected)
            << c.name << ": born " << date_text(c.birth) << ", rest from " << c.month << '/' << c.year
            << ", $" << c.amount << ", frequency " << c.frequency;
    }
}

TEST_F(PartialLumpSum, BelowSeventyTheUserDecides) {
    run_sql(folder.database(), "UPDATE lifexp SET multiple = 0.5");
    Database database(folder.database());
    struct Case {
        const char* name;
        Date birth;
        std::string expected, insisting;
    };
    // The payments commence together with the first one, which is refused where nobody is asked.
    // Their age is that of July, a birthday later than at the first payment.
    for (const Case& c :
         {Case{"69", 1958y / 6 / 15, question, accepted}, Case{"70", 1957y / 6 / 15, beyond, beyond},
          Case{"not beyond", 1957y / 8 / 15, too_early, too_early}}) {
        enter(c.birth, 3, 2027);
        scenario.first_pay_month = 3;
        scenario.first_pay_year = 2027;
        const double amount = 50000.0;
        EXPECT_EQ(told(check_partial(scenario, database, amount, today)), c.expected) << c.name;
        EXPECT_EQ(told(check_partial(scenario, database, amount, today, true)), c.insisting) << c.name;
    }
}

TEST_F(PartialLumpSum, AgesAreWorkedOutAnewAndAnUnknownAgeChangesNothing) {
    run_sql(folder.database(), "DELETE FROM lifexp WHERE age = 75");
    Database database(folder.database());
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
        EXPECT_EQ(told(check_partial(scenario, database, 50000.0, today)), accepted) << c.name;
        EXPECT_EQ(scenario.current_age, c.current_age) << c.name;
        EXPECT_DOUBLE_EQ(scenario.life_expectancy_age, c.life_expectancy_age) << c.name;
    }
}

TEST(PeriodicPayments, NeedAFrequency) {
    Scenario scenario;
    EXPECT_EQ(told(check_periodic(scenario)), no_frequency + " [chkperiod_0]");
    for (const auto& [box, expected, payments] : {std::tuple{0, 12, "7 monthly payments"},
                                                  {1, 4, "7 quarterly payments"},
                                                  {2, 2, "7 semi-annual payments"},
                                                  {3, 1, "7 annual payments"}}) {
        scenario.frequency = frequency_of_box(box);
        EXPECT_EQ(scenario.frequency, expected) << "box " << box;
        EXPECT_EQ(payments_text(7, expected), payments);
        EXPECT_EQ(told(check_periodic(scenario)), accepted) << "box " << box;
    }
    EXPECT_EQ(payments_text(1, 12), "1 monthly payment");
}

}  // namespace
}  // namespace kelvar::test
