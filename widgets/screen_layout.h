// What kind of screen a screen is, and what stands above and below its content.
#pragma once

#include <QString>

namespace kelvar {

struct ScreenLayout {
    // A note has one button in place of the navigation row: it says OK and goes back.
    enum class Kind { ordinary, note };

    QString title{};  // no band without a title
    QString step{};   // such as "Step 1 of 4"; empty for what is none
    // Which of the navigation row's controls it has; Close is always there.
    bool help = true;
    bool previous = true;
    bool next = true;
    bool save = false;  // what the participant has entered
    Kind kind = Kind::ordinary;
    const char* ok_name = "cmdok";  // of a note

    bool is_note() const { return kind == Kind::note; }
    bool is_step() const { return !step.isEmpty(); }
};

}  // namespace kelvar
