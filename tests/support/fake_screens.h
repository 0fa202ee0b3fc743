// Stands in for the windows: records what the core asks of the screens and answers its questions.
#pragma once

#include <string>
#include <vector>

#include "core/screens.h"

namespace kelvar::test {

class FakeScreens : public Screens {
public:
    bool next_answer = false;

    std::vector<ScreenId> shown;
    std::vector<ScreenId> closed;
    std::vector<std::string> messages;
    std::vector<std::string> questions;

    bool offers(ScreenId) const override { return false; }
    void show(ScreenId id) override { shown.push_back(id); }
    void hide(ScreenId) override {}
    void close(ScreenId id) override { closed.push_back(id); }
    void focus(std::string_view) override {}
    void show_help(const std::string&, const std::string&) override {}
    void show_message(const std::string& text) override { messages.push_back(text); }
    bool ask(const std::string& text) override {
        questions.push_back(text);
        return next_answer;
    }
    bool leave_participant() override { return true; }
    void save_participant(bool) override {}
    void open_participant() override {}
    void new_participant() override {}
    Entries entered() const override { return {}; }
    void enter(const Entries&) override {}
};

}  // namespace kelvar::test
