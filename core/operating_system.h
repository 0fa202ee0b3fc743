// What each operating system does its own way; the only file of core that calls one, beside
// whole_file.cpp.
#pragma once

#include <cstddef>
#include <ctime>
#include <filesystem>
#include <optional>
#include <string>

namespace kelvar {

// Now, by the clock and the time zone of the user.
std::tm local_time();

// The file of the program that runs.
std::filesystem::path running_program();

// When a file was last written, by the same clock.
std::tm time_of_writing(const std::filesystem::path& file);

// Whether files may be made in the folder.
bool may_write_into(const std::filesystem::path& folder);

// What a file of at most so many bytes holds; nothing when it is larger, or a folder, a pipe or a
// device, which is not waited for. Throws std::system_error when the system does not let it be read.
std::optional<std::string> read_ordinary_file(const std::filesystem::path& file,
                                              std::size_t most_bytes);

}  // namespace kelvar
