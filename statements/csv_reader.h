// Tables as spreadsheets write them: CSV as RFC 4180 has it, with or without a byte order mark, its
// lines ended in any way.
#pragma once

#include <filesystem>
#include <functional>
#include <istream>
#include <stdexcept>
#include <string>
#include <vector>

namespace kelvar {

// What is read cannot be used at all. One sentence that names the file.
class InputError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// One line of a table, which takes several lines of its file where cells have line breaks. Nobody
// vouches for its bytes.
struct CsvRecord {
    std::size_t line = 0;  // of the file, in which it begins; the first one is 1
    std::vector<std::string> cells{};
    bool unclosed = false;  // a quotation mark before its last cell has no partner up to the end
};

// Hands on the lines that are not blank, in their order, while it reads; returns early when `take` says
// that it has had enough. What is no ordinary file, or cannot be read, throws InputError.
void read_csv(std::istream& table, const std::function<bool(const CsvRecord&)>& take);
void read_csv(const std::filesystem::path& file, const std::function<bool(const CsvRecord&)>& take);

}  // namespace kelvar
