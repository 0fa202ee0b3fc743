// Files that somebody has saved, replaced by a complete one or not at all. Only their owner may read
// them, for they are about people. The program's own files are safe from it.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

namespace kelvar {

// The text says why a file was not written, for the user.
class FileError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Grows out of sight and takes its place at once. Where the name is a link to another file, that file
// is replaced and the link stays. All throw FileError.
class WholeFile {
public:
    // Refuses what belongs to the program, whose folder is named, and what is no file.
    WholeFile(const std::filesystem::path& program_folder, const std::filesystem::path& file);
    ~WholeFile();
    WholeFile(const WholeFile&) = delete;
    WholeFile& operator=(const WholeFile&) = delete;
    WholeFile(WholeFile&&) = delete;
    WholeFile& operator=(WholeFile&&) = delete;

    void write(std::string_view contents);
    // Without it nothing has happened.
    void commit();

private:
    void refuse() const;  // with the system's error
    void open_with_name();

    std::string shown_;            // the file, at the start of a sentence
    std::filesystem::path file_;   // behind all links
    std::filesystem::path named_;  // what grows, where the file system wants a name for it
    int descriptor_ = -1;
};

void write_whole(const std::filesystem::path& program_folder, const std::filesystem::path& file,
                 std::string_view contents);

}  // namespace kelvar
