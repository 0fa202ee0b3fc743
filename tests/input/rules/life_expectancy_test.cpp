#include "input/rules/life_expectancy.h"

#include <gtest/gtest.h>

#include <optional>

#include "input/rules/next_checks.h"
#include "input/rules/typed_numbers.h"
#include "tests/support/sql.h"
#include "tests/support/temporary_program_folder.h"
#include "tests/support/told.h"

namespace kelvar::test {
namespace {

using namespace std::chrono_literals;

const Date today = 2026y / 7 / 15;

const std::string no_spouse = "told: Please enter the birthdate of your spouse.";
const std::string no_age = "Your current age is invalid.";
const std::string too_many =
    "The number of payments will exceed your life expectancy or result in an amount below your minimum "
    "distribution. Please reduce the number of payments! [txtnumber]";
const std::string too_little =
    "This amount will be below your minimum distribution or would result in payments beyond your life "
    "expectancy. Please increase the dollar amount! [txtfixamount]";

const LengthEntry life{.option = by_life_expectancy};
const LengthEntry joint_life{.option = by_life_expectancy, .joint = true};

LengthEntry number(const char* text) {
    return {.option = by_number_of_payments, .number = read_unsigned(text)};
}

LengthEntry amount(const char* text) {
    return {.option = by_dollar_amount, .amount = get_num(text)};
}

class Length : public ::testing::Test {
protected:
    // Payments from August 2026 on; from September 2027 on after an amount certain.
    void enter(Date birth, Method method = periodic_payments, std::int16_t frequency = 12) {
        scenario = {};
        scenario.birth_date = birth;
        scenario.first_pay_month = 8;
        scenario.first_pay_year = 2026;
        scenario.scenario_month = 9;
        scenario.scenario_year = 2027;
        scenario.method = method;
        scenario.frequency = frequency;
        scenario.present_value = 264000.0;
        scenario.number_of_payments = 7;
        scenario.life_expectancy_age = 12.5;
    }

    void open_database() { database.emplace(folder.database()); }
    std::string next(const LengthEntry& entry) {
        return told(chk_fld(entry, scenario, database.value(), today));
    }

    TemporaryProgramFolder folder;
    std::optional<Database> database;
    Scenario scenario;
};

TEST_F(Length, NumberOfPaymentsEndsWithTheLifeExpectancyAtTheLatest) {
    run_sql(folder.database(), "UPDATE lifexp SET multiple = 3.33 WHERE age = 80");
    open_database();
    struct Case {
        const char* name;
        int birth_year;
        std::int16_t frequency;
        const char* text;
        std::string expected;
        int number;
    };
    const Case cases[] = {{"23.7 years by month", 1950, 12, "284", "", 284},
                          {"a month more", 1950, 12, "285", too_many, 285},
                          {"22 years by year", 1948, 1, "22", "", 22},
                          {"a year more", 1948, 1, "23", too_many, 23},
                          {"within 3.33 years", 1946, 12, "39", "", 39},
                          {"beyond 3.33 years", 1946, 12, "40", too_many, 40},
                          {"more than can be kept", 1950, 12, "50000", too_many, 32767},
                          {"30 digits", 1950, 12, "999999999999999999999999999999", too_many, 32767},
                          {"grouped", 1950, 12, "1,200", too_many, 1200},
                          {"negative", 1950, 12, "-24", "", 24},
                          {"rounded", 1950, 12, "0.6", "", 1}};
    for (const Case& c : cases) {
        enter(std::chrono::year{c.birth_year} / 6 / 15, periodic_payments, c.frequency);
        EXPECT_EQ(next(number(c.text)), c.expected) << c.name << ": " << c.text;
        EXPECT_EQ(scenario.number_of_payments, c.number) << c.name;
    }
    for (const char* text : {"0.4", "0", "", "24x", "1e400", "nan"}) {
        EXPECT_EQ(next(number(text)), "Invalid mumber of payments. [txtnumber]") << text;
    }
    EXPECT_EQ(next({}), "Invalid mumber of payments. [optlength_0]") << "no option chosen";
}

TEST_F(Length, AmountLastsUntilTheLifeExpectancyAtMost) {
    open_database();
    struct Case {
        const char* name;
        double partial_amount;
        const char* text;
        std::string expected;
        double fixed_amount;
    };
    // 22 years from age 78 on, and 21.1 from age 79 on for what an amount certain leaves.
    const Case cases[] = {{"22 years", 0.0, "1,000.00", "", 1000.0},
                          {"a cent less", 0.0, "999.99", too_little, 999.99},
                          {"negative", 0.0, "-1000", "", 1000.0},
                          {"above the balance", 0.0, "300000", "", 264000.0},
                          {"the rest of 200,000", 64000.0, "789.89", "", 789.89},
                          {"the rest, a cent less", 64000.0, "789.88", too_little, 789.88},
                          {"as high as the amount certain", 100.0, "100", "", 100.0},
                          {"lower", 100.0, "99.99", too_little, 99.99}};
    for (const Case& c : cases) {
        enter(1948y / 6 / 15, c.partial_amount > 0.0 ? partial_lump_sum : periodic_payments);
        scenario.partial_amount = c.partial_amount;
        EXPECT_EQ(next(amount(c.text)), c.expected) << c.name << ": " << c.text;
        EXPECT_EQ(scenario.fixed_amount, c.fixed_amount) << c.name;
    }
    for (const char* text : {"0.004", "0", "", "5x", "1e13", "1e400"}) {
        EXPECT_EQ(next(amount(text)), "Invalid dollar amount of payments [txtfixamount]") << text;
    }
}

TEST_F(Length, LifeExpectancyGivesWholePayments) {
    run_sql(folder.database(),
            "UPDATE lifexp SET multiple = 17.5 WHERE age = 81;"
            "UPDATE lifexp SET multiple = 17.55 WHERE age = 82");
    open_database();
    struct Case {
        const char* name;
        Method method;
        std::int16_t frequency;
        Date birth;
        Date spouse;  // no_date without joint life
        int lookup_age, spouse_lookup_age;
        double life_expectancy_age;
        int number;
    };
    const Method periodic = periodic_payments;
    const Method partial = partial_lump_sum;
    // The joint divisors 25.3 (75 and 64) and 14.7 (90 and 76) are published figures.
    const Case cases[] = {
        {"17.5 years by quarter", periodic, 4, 1945y / 6 / 1, no_date, 81, 0, 98.5, 70},
        {"17.55 years by month", periodic, 12, 1944y / 6 / 1, no_date, 82, 0, 99.55, 210},
        {"birth month, as shown", periodic, 1, 1950y / 8 / 20, no_date, 76, 0, 99.7, 23},
        {"second date, birth month", partial, 12, 1950y / 9 / 1, no_date, 76, 0, 99.7, 284},
        {"second date, month after", partial, 12, 1950y / 8 / 31, no_date, 77, 0, 99.9, 274},
        {"birth month of both", periodic, 12, 1950y / 8 / 20, 1970y / 8 / 1, 76, 55, 108.3, 387},
        {"month before", periodic, 12, 1950y / 9 / 20, 1970y / 9 / 5, 75, 55, 107.4, 388},
        {"month after", periodic, 12, 1950y / 7 / 20, 1970y / 7 / 5, 76, 56, 107.4, 376},
        {"second date, both", partial, 12, 1950y / 9 / 20, 1970y / 9 / 5, 77, 56, 108.3, 375},
        {"75 and 64", periodic, 4, 1951y / 8 / 1, 1961y / 8 / 31, 75, 64, 100.3, 101},
        {"90 and 76", periodic, 12, 1936y / 8 / 1, 1949y / 8 / 31, 90, 76, 104.7, 176}};
    for (const Case& c : cases) {
        enter(c.birth, c.method, c.frequency);
        scenario.spouse_birth_date = c.spouse;
        EXPECT_EQ(next(c.spouse == no_date ? life : joint_life), "")
            << c.name << ": born " << date_text(c.birth) << ", spouse " << date_text(c.spouse);
        EXPECT_EQ(scenario.lookup_age, c.lookup_age) << c.name;
        EXPECT_EQ(scenario.spouse_lookup_age, c.spouse_lookup_age) << c.name;
        EXPECT_DOUBLE_EQ(scenario.life_expectancy_age, c.life_expectancy_age) << c.name;
        EXPECT_EQ(scenario.number_of_payments, c.number) << c.name;
    }
}

TEST_F(Length, SingleLifeFindsItsOwnAgeAfterJointLifeAndTheOtherMethod) {
    open_database();
    enter(1950y / 7 / 20);
    scenario.first_pay_month = 7;  // the present month, before the birthday
    scenario.spouse_birth_date = 1970y / 8 / 5;
    EXPECT_EQ(next(joint_life), "");
    EXPECT_EQ(scenario.lookup_age, 76);
    EXPECT_EQ(next(number("10")), "");
    EXPECT_EQ(scenario.lookup_age, 75);
    EXPECT_DOUBLE_EQ(scenario.life_expectancy_age, 99.6);
    scenario.method = partial_lump_sum;
    EXPECT_EQ(next(life), "");
    EXPECT_EQ(scenario.lookup_age, 77);
    scenario.partial_amount = 100.0;
    EXPECT_EQ(next(joint_life), "");
    EXPECT_EQ(scenario.life_expectancy_age, 107.5) << "77, spouse 57";
    EXPECT_EQ(next(amount("100")), "") << "exempt";
    EXPECT_EQ(scenario.lookup_age, 77) << "looks nothing up";
    EXPECT_EQ(scenario.life_expectancy_age, 107.5);
    scenario.method = periodic_payments;
    EXPECT_EQ(next(amount("5000")), "");
    EXPECT_EQ(scenario.lookup_age, 75);
}

TEST_F(Length, AFailedLookUpIsToldAndChangesNothing) {
    run_sql(folder.database(), "DELETE FROM lifexp WHERE age = 76");
    open_database();
    // A life expectancy goes on all the same; 76 and 71 are in no row of the joint table.
    for (const auto& [entry, expected, payments] :
         {std::tuple{number("10"), no_age + " [txtnumber]", 10},
          std::tuple{amount("5000"), no_age + " [txtfixamount]", 7},
          std::tuple{life, "told: " + no_age, 7}, std::tuple{joint_life, no_spouse, 7}}) {
        enter(1950y / 6 / 15);
        scenario.spouse_birth_date = 1955y / 6 / 15;
        EXPECT_EQ(next(entry), expected);
        EXPECT_EQ(scenario.life_expectancy_age, 12.5) << expected;
        EXPECT_EQ(scenario.number_of_payments, payments) << expected;
    }
}

}  // namespace
}  // namespace kelvar::test
