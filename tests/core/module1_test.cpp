#include "core/module1.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/fake_screens.h"
#include "tests/support/temporary_program_folder.h"

namespace kelvar::test {
namespace {

using enum ScreenId;
using namespace std::chrono_literals;

class Module1Test : public ::testing::Test {
protected:
    TemporaryProgramFolder folder;
    FakeScreens screens;
    Module1 module1{screens, folder.path(), [] { return 2026y / 7 / 15; }};
    Scenario& scenario = module1.scenario;
};

TEST_F(Module1Test, NamesTheFrequencies) {
    struct Case {
        std::int16_t frequency;
        const char* expected;
    };
    for (const Case& c : {Case{1, "Annually"}, Case{2, "Semi-Annually"}, Case{4, "Quarterly"},
                          Case{12, "Monthly"}, Case{0, ""}, Case{3, ""}, Case{-1, ""}}) {
        scenario.frequency = c.frequency;
        EXPECT_EQ(module1.frequency_name(), c.expected) << c.frequency;
    }
}

TEST(AbsText, OnlyANegativeNumberBecomesANumber) {
    struct Case {
        const char* text;
        std::variant<double, std::string> expected;
    };
    const Case cases[] = {{"-1500.5", 1500.5},
                          {" -$1,200.50 or so", 1200.5},
                          {"1500.5", "1500.5"},
                          {"abc", "abc"},
                          {"", ""},
                          {"-abc", "-abc"},
                          {"-0", "-0"},
                          {" 007", " 007"}};
    for (const Case& c : cases) {
        EXPECT_EQ(abs_text(c.text), c.expected) << '"' << c.text << '"';
    }
}

TEST_F(Module1Test, PaymentsMayLastExactlyAsLongAsTheLifeExpectancy) {
    struct Case {
        std::int16_t payments;
        std::int16_t frequency;
        double life_expectancy_age;
        int expected;
    };
    for (const Case& c : {Case{240, 12, 90.0, 0}, Case{241, 12, 90.0, 1}, Case{0, 12, 70.0, 0},
                          Case{9, 4, 72.25, 0}, Case{9, 4, 72.2, 1}, Case{20, 1, 89.9, 1}}) {
        screens.messages.clear();
        scenario.message_text = "earlier";
        scenario.number_of_payments = c.payments;
        scenario.frequency = c.frequency;
        scenario.lookup_age = 70;
        scenario.life_expectancy_age = c.life_expectancy_age;
        EXPECT_EQ(module1.check_payments_exceed_life(), c.expected) << c.payments;
        const std::string message =
            "Because of the assumed rate of return you selected, the total number of payments in this "
            "scenario exceeds your life-expectancy / minimum distribution years. Please increase the "
            "fixed dollar distribution amount or change the assumed rate of return.";
        EXPECT_EQ(scenario.message_text, c.expected == 1 ? message : "earlier") << c.payments;
        EXPECT_EQ(screens.messages.size(), static_cast<std::size_t>(c.expected)) << c.payments;
        EXPECT_EQ(scenario.number_of_payments, c.payments);
    }
}

TEST_F(Module1Test, ResetClearsTheChoicesAndKeepsThePerson) {
    std::int16_t* const cleared[] = {
        &scenario.current_age,    &scenario.first_pay_month,    &scenario.first_pay_year,
        &scenario.scenario_month, &scenario.scenario_year,      &scenario.method,
        &scenario.frequency,      &scenario.number_of_payments, &scenario.length_option};
    double* const cleared_amounts[] = {&scenario.fixed_amount,   &scenario.present_value,
                                       &scenario.partial_amount, &scenario.lump_start_value,
                                       &scenario.total_paid,     &scenario.start_value,
                                       &scenario.second_value};
    std::int16_t* const kept[] = {&scenario.over_72_flag,      &scenario.screen_height,
                                  &scenario.screen_width,      &scenario.portfolio_index,
                                  &scenario.fee_amount,        &scenario.lookup_age,
                                  &scenario.spouse_lookup_age, &scenario.answer};
    double* const kept_numbers[] = {&scenario.main_offset_x, &scenario.main_offset_y,
                                    &scenario.portfolio_click_x, &scenario.portfolio_click_y,
                                    &scenario.life_expectancy_age};
    const auto set = [](auto& fields) {
        for (auto* field : fields) {
            *field = 1;
        }
    };
    const auto all_are = [](auto& fields, int value) {
        return std::ranges::all_of(fields, [&](const auto* field) { return *field == value; });
    };
    set(cleared);
    set(cleared_amounts);
    set(kept);
    set(kept_numbers);
    scenario.joint_life = true;
    scenario.partial_percent = "10.00";
    scenario.birth_date = 1950y / 6 / 15;
    scenario.selected_rates = {5, 6};
    scenario.help_file = "help";
    module1.reset_scenario();
    EXPECT_TRUE(all_are(cleared, 0));
    EXPECT_TRUE(all_are(cleared_amounts, 0));
    EXPECT_FALSE(scenario.joint_life);
    EXPECT_EQ(scenario.partial_percent, "");
    EXPECT_TRUE(all_are(kept, 1));
    EXPECT_TRUE(all_are(kept_numbers, 1));
    EXPECT_EQ(scenario.birth_date, 1950y / 6 / 15);
    EXPECT_EQ(scenario.selected_rates, (std::vector<double>{5, 6}));
    EXPECT_EQ(scenario.help_file, "help");
}

TEST_F(Module1Test, CloseGoesThroughTheScreensInAFixedOrder) {
    struct Case {
        std::int16_t method;
        std::vector<ScreenId> first;
    };
    const std::vector<ScreenId> rest{frmdnote, frmdrate, frmdist2, frmdist1, frmdist, mdifrmd};
    for (const Case& c :
         {Case{no_method, {}}, Case{lump_sum, {frmlump}}, Case{periodic_payments, {frmperio, frmdist3}},
          Case{partial_lump_sum, {frmparti, frmdist3}}, Case{4, {}}}) {
        scenario.method = c.method;
        screens.closed.clear();
        module1.close_all_screens();
        std::vector<ScreenId> expected = c.first;
        expected.insert(expected.end(), rest.begin(), rest.end());
        EXPECT_EQ(screens.closed, expected) << "method " << c.method;
    }
}

TEST_F(Module1Test, TheMenuIsReachedWithNothingOfTheOldScenarioOpen) {
    module1.return_to_menu();
    for (const ScreenId id :
         {frmdist, frmdist1, frmdist2, frmdist3, frmdrate, frmlump, frmperio, frmparti, frmdnote}) {
        EXPECT_EQ(std::ranges::count(screens.closed, id), 1) << static_cast<int>(id);
    }
    EXPECT_EQ(std::ranges::count(screens.closed, mdifrmd), 0) << "closing it would end the program";
    EXPECT_EQ(screens.shown, std::vector{frmdist});
}

TEST_F(Module1Test, OpeningTheDatabaseSetsWhatTheRunNeeds) {
    scenario.over_72_flag = 1;
    EXPECT_THROW(module1.database(), DatabaseError);
    module1.open_database();
    EXPECT_EQ(module1.database().rate().RecordCount(), 4U);
    EXPECT_EQ(scenario.help_file, (folder.path() / "vestoraq.hlp").string());
    EXPECT_EQ(scenario.fee_amount, 80);
    EXPECT_EQ(scenario.over_72_flag, 0);
    module1.set_screen_size();
    EXPECT_EQ(scenario.screen_height, 6800);
    EXPECT_EQ(scenario.screen_width, 8685);
    EXPECT_EQ(module1.today(), 2026y / 7 / 15);
    std::filesystem::remove(folder.database());
    EXPECT_THROW(Module1(screens, folder.path()).open_database(), DatabaseError);
}

TEST_F(Module1Test, MessagesAreKeptAsTheLastOne) {
    module1.report("first");
    EXPECT_EQ(scenario.message_text, "first");
    EXPECT_EQ(screens.messages, std::vector<std::string>{"first"});
    for (const bool yes : {true, false}) {
        screens.next_answer = yes;
        EXPECT_EQ(module1.ask("second"), yes);
        EXPECT_EQ(scenario.answer, yes ? 1 : 0);
        EXPECT_EQ(scenario.message_text, "second");
    }
    EXPECT_EQ(screens.questions.size(), 2U);
    EXPECT_EQ(screens.messages.size(), 1U) << "a question is no message";
}

}  // namespace
}  // namespace kelvar::test
