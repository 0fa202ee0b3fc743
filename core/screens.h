// What the core may ask of the screens. The shell implements it with windows, tests with a recorder.
#pragma once

#include <string>
#include <string_view>

#include "core/entries.h"

namespace kelvar {

enum class ScreenId {
    mdifrmd,        // main window
    frmkelvd,       // title
    frmdist,        // menu
    frmdist1,       // participant data
    frmdist2,       // method of distribution
    frmdist3,       // length of payments
    frmdrate,       // rates of return
    frmlump,        // lump sum result
    frmperio,       // periodic payments result
    frmparti,       // partial lump sum result
    frmcompare,     // the chosen rates side by side
    frmchoices,     // results that were kept, side by side
    frmcperi,       // chart of periodic payments
    frmcpart,       // chart of a partial lump sum with payments
    frmclaim,       // disclaimer
    frmdnote,       // all portfolios
    frmPortfolios,  // one portfolio
    frmderrmsg,     // rollover note
    frmethod,       // note on the method
    frmlengt,       // note on the length
    frmtimin,       // note on the commencement date
    frmvang,        // how to make payments last longer
    frmvang1,       // duration table
    frmlife         // life expectancy table
};

class Screens {
public:
    virtual ~Screens() = default;

    // True when the program has this screen. What leads to another one is shown disabled.
    virtual bool offers(ScreenId id) const = 0;

    // Creates the screen on first use and puts it in front.
    virtual void show(ScreenId id) = 0;
    // Takes the screen from view and keeps it with everything typed into it.
    virtual void hide(ScreenId id) = 0;
    // Destroys the screen; harmless when it was never created. Closing mdifrmd ends the program.
    virtual void close(ScreenId id) = 0;

    // Puts the focus on a control of the screen in front, its text selected.
    virtual void focus(std::string_view field) = 0;

    // Opens the help file at the page of a screen and goes on. Throws std::runtime_error when the file
    // cannot be opened.
    virtual void show_help(const std::string& help_file, const std::string& screen_name) = 0;

    // Shows the message screen and waits until the user has closed it.
    virtual void show_message(const std::string& text) = 0;
    // Shows the yes/no message screen and waits; true for yes.
    virtual bool ask(const std::string& text) = 0;

    // Before a participant is left: asks whether changes are to be saved to its file, if it has one.
    // False when the user stays. After that no file belongs to what is entered, and no result is kept.
    virtual bool leave_participant() = 0;
    // Saves what is entered to its file; asks for a name where it has none, or another one is wanted.
    virtual void save_participant(bool under_another_name) = 0;
    // Lets the user choose a participant's file and enters what it holds.
    virtual void open_participant() = 0;
    // Leaves the participant, with all that is left of it in the program, for the menu.
    virtual void new_participant() = 0;

    // What stands on the steps now.
    virtual Entries entered() const = 0;
    // Types these entries in place of what stands there, with Next after each step.
    virtual void enter(const Entries& entries) = 0;
};

}  // namespace kelvar
