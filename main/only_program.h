#pragma once

#include <filesystem>

namespace kelvar {

// As long as it lives, no other process can have one for the same folder: two programs on one database
// would print each other's schedules. Nothing is left behind in the folder, whatever ends the program.
class OnlyProgram {
public:
    explicit OnlyProgram(const std::filesystem::path& program_folder);
    ~OnlyProgram();
    OnlyProgram(const OnlyProgram&) = delete;
    OnlyProgram& operator=(const OnlyProgram&) = delete;

    // True when another process came first.
    bool is_second() const { return is_second_; }

private:
    int folder_;  // file descriptor
    bool is_second_;
};

}  // namespace kelvar
