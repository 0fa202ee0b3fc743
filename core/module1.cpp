#include "core/module1.h"

#include <utility>

#include "core/closing_order.h"
#include "core/life_tables.h"
#include "core/numbers.h"
#include "core/plan.h"
#include "core/reference_data.h"

namespace kelvar {

namespace {

constexpr std::int16_t standard_height = 6800;  // twips
constexpr std::int16_t standard_width = 8685;   // twips

}  // namespace

Module1::Module1(Screens& screens_of_program, std::filesystem::path program_folder, Clock clock)
    : screens(screens_of_program),
      program_folder_(std::move(program_folder)),
      clock_(std::move(clock)) {}

void Module1::open_database() {
    scenario.help_file = program_file("vestoraq.hlp").string();
    auto database = std::make_unique<Database>(program_file(database_name));
    check_reference_data(*database);
    database_ = std::move(database);
    scenario.fee_amount = plan::yearly_fee;
    scenario.over_72_flag = 0;
}

Database& Module1::database() {
    if (!database_) {
        throw DatabaseError(program_file(database_name), "the database is not open");
    }
    return *database_;
}

void Module1::set_screen_size() {
    scenario.screen_height = standard_height;
    scenario.screen_width = standard_width;
}

void Module1::reset_scenario() {
    const Scenario fresh;
    scenario.name = fresh.name;
    scenario.current_age = fresh.current_age;
    scenario.first_pay_month = fresh.first_pay_month;
    scenario.first_pay_year = fresh.first_pay_year;
    scenario.scenario_month = fresh.scenario_month;
    scenario.scenario_year = fresh.scenario_year;
    scenario.method = fresh.method;
    scenario.frequency = fresh.frequency;
    scenario.fixed_amount = fresh.fixed_amount;
    scenario.number_of_payments = fresh.number_of_payments;
    scenario.length_option = fresh.length_option;
    scenario.joint_life = fresh.joint_life;
    scenario.present_value = fresh.present_value;
    scenario.partial_amount = fresh.partial_amount;
    scenario.partial_percent = fresh.partial_percent;
    scenario.lump_start_value = fresh.lump_start_value;
    scenario.total_paid = fresh.total_paid;
    scenario.start_value = fresh.start_value;
    scenario.second_value = fresh.second_value;
}

std::string_view Module1::frequency_name() const {
    return plan::frequency(scenario.frequency).name;
}

int Module1::check_payments_exceed_life() {
    if (!payments_exceed_life(scenario.number_of_payments, scenario.frequency,
                              {scenario.lookup_age, scenario.life_expectancy_age})) {
        return 0;
    }
    report(
        "Because of the assumed rate of return you selected, the total number of payments in this "
        "scenario exceeds your life-expectancy / minimum distribution years. Please increase the fixed "
        "dollar distribution amount or change the assumed rate of return.");
    return 1;
}

void Module1::close_all_screens() {
    if (!screens.leave_participant()) {
        return;
    }
    for (const ScreenId id : order_to_the_end(scenario.method)) {
        screens.close(id);
    }
}

bool Module1::return_to_menu() {
    if (!screens.leave_participant()) {
        return false;
    }
    for (const ScreenId id : order_to_the_menu()) {
        screens.close(id);
    }
    screens.show(ScreenId::frmdist);
    return true;
}

void Module1::forget_participant() {
    reset_scenario();
    const Scenario fresh;
    scenario.birth_date = fresh.birth_date;
    scenario.spouse_birth_date = fresh.spouse_birth_date;
    scenario.lookup_age = fresh.lookup_age;  // which the life expectancy table would mark
    scenario.selected_rates.clear();
    visit = {};
    database().empty_work_tables();
}

void Module1::report(std::string_view text) {
    scenario.message_text = text;
    screens.show_message(scenario.message_text);
}

bool Module1::ask(std::string_view text) {
    scenario.message_text = text;
    scenario.answer = screens.ask(scenario.message_text) ? 1 : 0;
    return scenario.answer == 1;
}

std::variant<double, std::string> abs_text(std::string_view text) {
    const double value = read_number(text);
    if (value < 0.0) {
        return -value;
    }
    return std::string{text};
}

}  // namespace kelvar
