// The columns of a table of participants: what its header names, and what a line of it comes to by the
// rules of the screens.
#pragma once

#include <string>
#include <vector>

#include "core/records.h"
#include "core/scenario.h"
#include "statements/csv_reader.h"

namespace kelvar {

// Ann Miller, say, and what was chosen for her.
struct Participant {
    std::size_t line = 0;  // of the file
    std::string name{};    // in valid UTF-8, also of a line that is refused
    Scenario scenario{};
    std::string refusal{};  // as the screen would say it; empty when all was accepted
    std::string column{};   // that the refusal means, if it means one
};

class Columns {
public:
    // Throws InputError when a name is unknown or there twice, or one is missing; `file` is for its
    // text.
    Columns(const CsvRecord& header, const std::string& file);

    Participant read(const CsvRecord& record, Database& database, Date today) const;

private:
    std::vector<std::size_t> columns_;  // of the cells, by their places in the table of all
};

}  // namespace kelvar
