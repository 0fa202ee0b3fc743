// A line of a table for other programs: CSV as RFC 4180 has it.
#pragma once

#include <span>
#include <string>

namespace kelvar {

inline std::string csv_line(std::span<const std::string> cells) {
    std::string line;
    for (const std::string& cell : cells) {
        const bool quoted = cell.find_first_of(",\"\r\n") != std::string::npos;
        line += &cell == cells.data() ? "" : ",";
        line += quoted ? "\"" : "";
        for (const char character : cell) {
            line.append(character == '"' ? 2 : 1, character);
        }
        line += quoted ? "\"" : "";
    }
    return line + "\r\n";
}

}  // namespace kelvar
