// The tags of a template as they stand in its text, and the lines that its faults are in.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace kelvar {

struct Tag {
    std::size_t place;  // where it begins in the template, and where the text goes on
    std::size_t end;
    char kind;  // what its name begins with, such as # of a section; 0 for a field
    std::string name;
};

// The first one from a place on; nothing when there is none, or when it has no end.
std::optional<Tag> next_tag(const std::string& text, std::size_t from);

// " in line 12", counted from 1.
std::string in_line(const std::string& text, std::size_t place);
// The first section that is closed and was not open, or is still open at the end of the one around it
// or of the text, with its line.
std::optional<std::string> section_fault(const std::string& text);
// A message that ends in " at " and a place in bytes, with its line instead.
std::string fault_in_line(const std::string& text, const std::string& message);
// A message that quotes what a template names, with the line of that where it is found.
std::string refusal_in_line(const std::string& text, const std::string& message);

}  // namespace kelvar
