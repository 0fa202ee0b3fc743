// Note screens: fixed texts with one button that closes them and returns to the screen beneath.
#pragma once

#include <vector>

#include "shell/screen.h"

namespace kelvar {

struct Note {
    ScreenId id;
    const char* name;
    std::vector<Paragraph> paragraphs;
};

// All notes that are nothing but text.
const std::vector<Note>& notes();

class NoteScreen : public Screen {
    Q_OBJECT

public:
    NoteScreen(Module1& module, const Note& note);
};

}  // namespace kelvar
