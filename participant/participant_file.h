// A participant's file: the entries of one participant as JSON that people can read and write. README
// has an example. Nobody vouches for a file that is opened.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

#include "core/entries.h"

namespace kelvar {

// One sentence that names the file and, where there is one, the line.
class ParticipantFileError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The text of a file, in UTF-8. What has not been entered is left out; numbers have no exponent. The
// entries are ones that a file may hold, see participant_of.
std::string participant_text(const Entries& entries);

// Both throw ParticipantFileError when they refuse what they read: every entry must be one that its box
// or list could hold, but need not be one that the plan's rules accept today.
Entries read_participant(const std::filesystem::path& file);
Entries participant_of(std::string_view text, std::string_view file = "This");

}  // namespace kelvar
