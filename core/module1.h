// The shared routines and the shared state of the program: one scenario, one database, today's date.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

#include "core/dates.h"
#include "core/records.h"
#include "core/scenario.h"
#include "core/screens.h"
#include "core/visit.h"

namespace kelvar {

class Module1 {
public:
    // `screens` must outlive the module. The database and the help file lie in `program_folder`.
    Module1(Screens& screens, std::filesystem::path program_folder, Clock clock = system_date);

    Scenario scenario;
    Visit visit;
    Screens& screens;

    // Full path of a file that lies beside the program.
    std::filesystem::path program_file(std::string_view name) const { return program_folder_ / name; }

    // Opens the database, names the help file, sets the yearly fee. Throws DatabaseError, also when the
    // reference tables hold what nothing may be computed from (see core/reference_data.h).
    void open_database();
    static constexpr const char* database_name = "vestoraq.mdb";
    // The open database; throws DatabaseError before open_database.
    Database& database();

    Date today() const { return clock_(); }

    void set_screen_size();
    void reset_scenario();

    // "Annually", "Semi-Annually", "Quarterly", "Monthly"; "" when no frequency is chosen.
    std::string_view frequency_name() const;

    // Reports payments that outlast the life expectancy; 1 when it did, 0 when all is well.
    int check_payments_exceed_life();

    // Closes every screen in the fixed order, last the main window, which ends the program; unless the
    // user stays with the participant, see Screens::leave_participant.
    void close_all_screens();
    // Starts afresh at the menu: closes what holds entries or results of the old scenario. False when
    // the user stays.
    bool return_to_menu();
    // Nothing of a participant who was left stays in the scenario and in the work tables. Throws
    // DatabaseError; then the tables are as they were.
    void forget_participant();

    // Stores the text as the last message, shows it and waits.
    void report(std::string_view text);
    // Stores the text, asks it as a yes/no question and waits; true for yes.
    bool ask(std::string_view text);

private:
    std::filesystem::path program_folder_;
    Clock clock_;
    std::unique_ptr<Database> database_;
};

// The absolute value when the number that the text starts with is negative, else the text itself.
std::variant<double, std::string> abs_text(std::string_view text);

}  // namespace kelvar
