// The program without its process: window, shared state, database and every screen, assembled in one
// place and taken down in one order.
#pragma once

#include <filesystem>
#include <memory>

#include "core/module1.h"
#include "shell/main_window.h"

namespace kelvar {

class Program {
public:
    // Knows every screen and shows none yet. The files beside the program lie in `folder`.
    explicit Program(const std::filesystem::path& folder, Clock clock = system_date);

    // Opens the database and shows the main window with the title screen. Throws DatabaseError.
    void open(const std::filesystem::path& participant = {});

    MainWindow& window() { return *window_; }
    Module1& module() { return *module_; }

private:
    // The window with its screens goes first: they refer to the module and to the open database in it.
    std::unique_ptr<Module1> module_;
    std::unique_ptr<MainWindow> window_;
};

}  // namespace kelvar
