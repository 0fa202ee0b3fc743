#include "input/rules/limits.h"

#include <gtest/gtest.h>
#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <random>

#include "core/ages.h"
#include "core/life_tables.h"
#include "core/numbers.h"
#include "input/rules/birth_date.h"
#include "input/rules/commencement.h"
#include "input/rules/first_payment.h"
#include "input/rules/next_checks.h"
#include "input/rules/spouse.h"
#include "tests/support/sql.h"
#include "tests/support/temporary_program_folder.h"

namespace kelvar::test {
namespace {

using namespace std::chrono_literals;

class Limits : public ::testing::Test {
protected:
    int any(int first, int last) {
        return first + static_cast<int>(random() % static_cast<unsigned>(last - first + 1));
    }
    Date any_day(int first_year, int last_year) {
        return std::chrono::year{any(first_year, last_year)} / any(1, 12) / any(1, 28);
    }
    // From a cent up to the largest amount, as many of each number of digits.
    double any_amount(double most) {
        const double dollars = std::pow(10.0, any(0, 1500) / 100.0) / 100.0;
        return round_to_cents(std::fmod(dollars, most + 0.01));
    }

    void enter_anything() {
        scenario = {};
        today = any_day(2020, 2030);
        do {
            scenario.birth_date = any_day(year_of(today) - 101, year_of(today) - 16);
            scenario.current_age = age_on_day(scenario.birth_date, today);
        } while (scenario.current_age < 16 || scenario.current_age > 100);
        scenario.entry_date = today;
        do {
            const auto years = first_payment_years(scenario.birth_date, today);
            scenario.first_pay_year =
                static_cast<std::int16_t>(any(years.front(), any(years.front(), years.back())));
            scenario.first_pay_month = static_cast<std::int16_t>(any(1, 12));
        } while (check_first_payment(scenario, today));
        scenario.frequency =
            std::array<std::int16_t, 4>{12, 4, 2, 1}.at(static_cast<std::size_t>(any(0, 3)));
        scenario.present_value = std::max(0.01, any_amount(largest_amount));
        scenario.method =
            any(0, 1) == 0 || scenario.present_value < 0.02 ? periodic_payments : partial_lump_sum;
        const auto years = scenario_years(scenario, today);
        if (scenario.method == partial_lump_sum && !years.empty()) {
            scenario.scenario_year = static_cast<std::int16_t>(any(years.front(), years.back()));
            const auto months = scenario_months(scenario, scenario.scenario_year, today);
            scenario.scenario_month = static_cast<std::int16_t>(any(months.front(), months.back()));
            const double part = std::max(0.01, any_amount(scenario.present_value - 0.01));
            scenario.partial_amount = any(0, 1) == 0 ? part : scenario.present_value - part;
            scenario.partial_amount = round_to_cents(std::max(0.01, scenario.partial_amount));
        }
    }

    // The field that Next refuses, nothing when it accepts; with the scenario that it stores.
    std::string_view next(const LengthEntry& entry) {
        stored = scenario;
        return field_of(chk_fld(entry, stored, *database, today));
    }
    std::string_view next_number(int number) {
        return next({.option = by_number_of_payments, .number = static_cast<double>(number)});
    }
    std::string_view next_amount(double amount) {
        return next({.option = by_dollar_amount, .amount = amount});
    }
    std::string_view next_partial(double amount) {
        stored = scenario;
        stored.partial_amount = amount;
        return field_of(check_partial(stored, *database, amount, today));
    }
    static std::string_view field_of(const Check& check) {
        return !check ? "" : check->means == Refusal::Means::told ? "told" : check->field;
    }

    // Asked at both ends, on the last day outside and the first one inside.
    void expect_births() {
        const auto expect = [](const Births& births, auto refused) {
            for (const Date last : {births.after, births.up_to}) {
                for (const int later : {0, 1}) {
                    const Date birth = std::chrono::sys_days{last} + std::chrono::days{later};
                    EXPECT_EQ(!refused(date_text(birth)), births.after < birth && birth <= births.up_to)
                        << date_text(birth);
                }
            }
        };
        expect(participant_births(today),
               [&](const std::string& typed) { return check_birth(typed, today).wrong; });
        expect(spouse_births(scenario.current_age, today), [&](const std::string& typed) {
            return check_spouse(typed, scenario.current_age, today).wrong;
        });
    }
    void expect_latest_month() {
        const Date latest = *latest_first_month(scenario.birth_date, today);
        for (const int later : {0, 1}) {
            stored = scenario;
            stored.first_pay_year = static_cast<std::int16_t>(year_of(add_months(latest, later)));
            stored.first_pay_month = static_cast<std::int16_t>(month_of(add_months(latest, later)));
            EXPECT_EQ(check_first_payment(stored, today).has_value(), later == 1) << date_text(latest);
        }
    }
    void expect_most_payments_and_least_amount() {
        const auto most = most_payments(scenario, *database, today);
        const auto least = least_amount(scenario, *database, today);
        ASSERT_TRUE(most && least) << "as it is with the tables shipped";
        EXPECT_EQ(next_number(*most), "") << *most;
        EXPECT_EQ(next_number(*most + 1), "txtnumber") << *most;
        EXPECT_EQ(next_amount(*least), "") << *least;
        EXPECT_EQ(next_amount(*least - 0.01), "txtfixamount") << *least;
        exempt += *least == scenario.partial_amount ? 1 : 0;
    }
    // Where none is named, there is no minimum, or even all but a cent is refused.
    void expect_least_partial_amount() {
        if (const auto least = least_partial_amount(scenario, *database, today)) {
            EXPECT_EQ(next_partial(*least), "") << *least;
            EXPECT_EQ(next_partial(*least - 0.01), "txtpartial") << *least;
            ++due;
        } else if (next_partial(scenario.present_value - 0.01).empty()) {
            EXPECT_EQ(next_partial(0.01), "");
        }
    }
    void expect_life(std::optional<int> number, std::string_view refused) {
        EXPECT_EQ(number.has_value(), refused.empty()) << refused;
        if (number) {
            const LifeLimit limit{stored.lookup_age, stored.life_expectancy_age};
            EXPECT_FALSE(payments_exceed_life(*number, scenario.frequency, limit)) << *number;
            EXPECT_TRUE(payments_exceed_life(*number + 1, scenario.frequency, limit)) << *number;
        }
    }
    void expect_joint_life() {
        scenario.spouse_birth_date = any_day(1945, 1990);
        const std::string typed = date_text(scenario.spouse_birth_date);
        const auto number = payments_over_joint_life(scenario, typed, *database, today);
        const Check wrong = check_spouse(typed, scenario.current_age, today).wrong;
        const auto refused = next({.option = by_life_expectancy, .joint = true});
        expect_life(number, wrong ? wrong->field : refused);
        joint += number ? 1 : 0;
    }

    std::mt19937 random{20200115};
    TemporaryProgramFolder folder;
    std::optional<Database> database;
    Date today{2020y / 1 / 15};
    Scenario scenario;
    Scenario stored;
    int exempt = 0;
    int due = 0;
    int joint = 0;
};

TEST_F(Limits, AreAcceptedAndTheNextFigureBeyondIsNot) {
    database.emplace(folder.database());
    for (int i = 0; i < 500; ++i) {
        enter_anything();
        SCOPED_TRACE(::testing::Message()
                     << date_text(today) << ", born " << date_text(scenario.birth_date) << ", first "
                     << scenario.first_pay_month << '/' << scenario.first_pay_year << ", rest "
                     << scenario.scenario_month << '/' << scenario.scenario_year << ", "
                     << scenario.frequency << " a year, $" << scenario.partial_amount << " of $"
                     << scenario.present_value);
        expect_latest_month();
        expect_births();
        if (scenario.method == partial_lump_sum) {
            expect_least_partial_amount();
        }
        if (scenario.method == periodic_payments || scenario.scenario_year != 0) {
            expect_most_payments_and_least_amount();
            const auto number = payments_over_life(scenario, *database, today);
            expect_life(number, next({.option = by_life_expectancy}));
            expect_joint_life();
        }
    }
    EXPECT_GE(std::min({exempt, due, joint}), 20) << exempt << ' ' << due << ' ' << joint;
}

// Worked out by hand from divisors 29.1 at 70 and 27.4 at 72, for payments from July 2020.
TEST_F(Limits, InFigures) {
    run_sql(folder.database(),
            "UPDATE lifexp SET multiple = 0.5 WHERE age = 60;"
            "UPDATE lifexp SET multiple = 5000 WHERE age = 61; DELETE FROM lifexp WHERE age = 62");
    database.emplace(folder.database());
    struct Case {
        const char* name;
        int birth_year;
        std::int16_t frequency;
        double present_value, partial_amount;  // without an amount certain 0
        std::optional<int> most;
        std::optional<double> least, least_partial;
    };
    const auto none = std::nullopt;
    const Case cases[] = {{"monthly", 1950, 12, 250000.0, 0.0, 349, 715.93, none},
                          {"annual", 1950, 1, 250000.0, 0.0, 29, 8591.07, none},
                          {"ends just there", 1950, 1, 29.1, 0.0, 29, 1.0, none},
                          {"a cent", 1950, 12, 0.01, 0.0, 349, 0.01, none},
                          {"the largest", 1950, 1, largest_amount, 0.0, 29, 343642611683.85, none},
                          {"no frequency", 1950, 0, 250000.0, 0.0, none, none, none},
                          {"half a year by year", 1960, 1, 250000.0, 0.0, none, none, none},
                          {"half a year by month", 1960, 12, 250000.0, 0.0, 6, 41666.67, none},
                          {"more than can be kept", 1959, 12, 250000.0, 0.0, 32767, 4.17, none},
                          {"not in the table", 1958, 12, 250000.0, 0.0, none, none, none},
                          {"rest", 1948, 12, 250000.0, 40000.0, 318, 660.38, 9124.09},
                          {"rest, no frequency yet", 1948, 0, 250000.0, 40000.0, none, none, 9124.09},
                          {"rest of an amount of a cent", 1948, 12, 250000.0, 0.01, 318, 0.01, 9124.09},
                          {"as high as the amount", 1948, 12, 250000.0, 600.0, 318, 600.0, 9124.09},
                          {"all but a cent", 1948, 12, 250000.0, 249999.99, 318, 0.01, 9124.09},
                          {"two cents", 1948, 12, 0.02, 0.01, 318, 0.01, 0.01},
                          {"nothing below a cent", 1948, 12, 0.01, 0.0, 328, 0.01, none}};
    for (const Case& c : cases) {
        scenario = {};
        scenario.birth_date = std::chrono::year{c.birth_year} / 6 / 15;
        scenario.first_pay_month = 7;
        scenario.first_pay_year = 2020;
        scenario.frequency = c.frequency;
        scenario.present_value = c.present_value;
        scenario.partial_amount = c.partial_amount;
        scenario.method = c.partial_amount > 0.0 ? partial_lump_sum : periodic_payments;
        if (scenario.method == partial_lump_sum) {
            scenario.scenario_month = 7;
            scenario.scenario_year = 2021;
        }
        EXPECT_EQ(most_payments(scenario, *database, today), c.most) << c.name;
        EXPECT_EQ(least_amount(scenario, *database, today), c.least) << c.name;
        EXPECT_EQ(least_partial_amount(scenario, *database, today), c.least_partial) << c.name;
    }
    EXPECT_EQ(latest_first_month(1951y / 6 / 15, today), 2022y / 3 / 1);
    EXPECT_EQ(latest_first_month(no_date, today), std::nullopt);
    // 70½ in 2018 or 2019, in the years before those whose March is the deadline.
    EXPECT_EQ(passed_deadline(1948y / 6 / 30, 2020y / 1 / 15), 2019y / 3 / 1);
    EXPECT_EQ(passed_deadline(1948y / 7 / 1, 2020y / 3 / 31), std::nullopt);
    EXPECT_EQ(passed_deadline(1948y / 7 / 1, 2020y / 4 / 1), 2020y / 3 / 1);
    EXPECT_EQ(passed_deadline(no_date, today), std::nullopt);
}

}  // namespace
}  // namespace kelvar::test
