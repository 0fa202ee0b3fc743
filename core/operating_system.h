// What each operating system does its own way; the only file of core that calls one.
#pragma once

#include <ctime>
#include <filesystem>

namespace kelvar {

// Now, by the clock and the time zone of the user.
std::tm local_time();

// Whether files may be made in the folder.
bool may_write_into(const std::filesystem::path& folder);

}  // namespace kelvar
