#include "output/report/template_tags.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace kelvar {

std::optional<Tag> next_tag(const std::string& text, std::size_t from) {
    const std::size_t place = text.find("{{", from);
    const std::size_t end = text.find("}}", place);
    if (place == std::string::npos || end == std::string::npos) {
        return std::nullopt;
    }
    constexpr std::string_view blanks = " \t\r\n";
    std::string_view name = std::string_view(text).substr(place + 2, end - place - 2);
    const auto trim = [&](std::size_t marks) {
        name.remove_prefix(std::min(name.find_first_not_of(blanks, marks), name.size()));
        name = name.substr(0, name.find_last_not_of(blanks) + 1);
    };
    trim(0);
    const bool has_kind =
        !name.empty() && std::string_view("#^/={&>!").find(name.front()) != std::string_view::npos;
    const char kind = has_kind ? name.front() : '\0';
    trim(has_kind ? 1 : 0);
    return Tag{place, end + 2, kind, std::string(name)};
}

std::string in_line(const std::string& text, std::size_t place) {
    const auto end = text.begin() + static_cast<std::ptrdiff_t>(std::min(place, text.size()));
    return " in line " + std::to_string(1 + std::count(text.begin(), end, '\n'));
}

std::optional<std::string> section_fault(const std::string& text) {
    const auto fault = [&](const char* what, const Tag& tag) {
        return std::string(what) + " section \"" + tag.name + '"' + in_line(text, tag.place);
    };
    std::vector<Tag> open;
    for (std::optional<Tag> tag = next_tag(text, 0); tag; tag = next_tag(text, tag->end)) {
        if (tag->kind == '#' || tag->kind == '^') {
            open.push_back(*tag);
        } else if (tag->kind == '/') {
            if (std::ranges::find(open, tag->name, &Tag::name) == open.end()) {
                return fault("Unopened", *tag);
            }
            if (open.back().name != tag->name) {
                return fault("Unclosed", open.back());
            }
            open.pop_back();
        }
    }
    return open.empty() ? std::nullopt : std::optional(fault("Unclosed", open.back()));
}

std::string fault_in_line(const std::string& text, const std::string& message) {
    const std::size_t at = message.rfind(" at ");
    return message.substr(0, at) + in_line(text, std::stoul(message.substr(at + 4)));
}

std::string refusal_in_line(const std::string& text, const std::string& message) {
    const std::size_t quote = message.find('"') + 1;
    const std::string name = message.substr(quote, message.find('"', quote) - quote);
    const std::size_t place = name.empty() ? std::string::npos : text.find(name);
    const bool known = quote > 0 && place != std::string::npos;
    return known ? message.substr(0, message.size() - 1) + in_line(text, place) + "." : message;
}

}  // namespace kelvar
