// The printers of this computer, behind a print server that may be far away, or take calls and never
// answer.
#pragma once

#include <QPrinter>
#include <memory>

class QProcess;

namespace kelvar {

// The toolkit may wait for the server for minutes, which a process of its own can do: a program whose
// first argument this is hands what it was started with to look_for_printers, and ends.
inline constexpr const char* looks_for_printers = "--look-for-printers";
int look_for_printers(int argc, char** argv);
// Starts that process; once it has ended, the server answers.
void start_looking(QProcess& search);

// Paper to look at on the screen, without asking any server.
std::unique_ptr<QPrinter> paper();

}  // namespace kelvar
