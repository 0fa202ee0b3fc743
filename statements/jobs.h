// Several processes share the work on the lines of a table; what they make comes back in the order of
// the lines, however many there are.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "statements/columns.h"

namespace kelvar {

// What was made of one line.
struct Made {
    std::string results{};
    std::string payments{};
    bool refused = false;
};

using MakeLine = std::function<Made(const CsvRecord&)>;

// Of a table whose first line is its header. Each process makes its own worker of the header, when it
// has begun; `take` runs here and has nothing to keep but what it is given. Throws InputError for a
// table without a header, Interrupted, and std::runtime_error with what a worker threw: the processes
// have ended then.
void share_lines(const std::filesystem::path& table, int jobs,
                 const std::function<MakeLine(const CsvRecord& header)>& begin,
                 const std::function<void(const Made&)>& take);

// By SIGINT or SIGTERM.
struct Interrupted {
    int signal = 0;
};

}  // namespace kelvar
