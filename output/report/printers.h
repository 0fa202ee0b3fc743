// The printers of this computer, behind a print server that may be far away, or take calls and never
// answer.
#pragma once

#include <QPrinter>
#include <memory>

class QProcess;

namespace kelvar {

// The first argument with which a program only looks for printers: the toolkit waits for their server
// for minutes, which a process of its own can do. What it is started with goes to look_for_printers.
inline constexpr const char* looks_for_printers = "--look-for-printers";
int look_for_printers(int argc, char** argv);
// Starts that process; once it has ended, the server answers.
void start_looking(QProcess& search);

// Paper to look at on the screen, without asking any server.
std::unique_ptr<QPrinter> paper();

}  // namespace kelvar
