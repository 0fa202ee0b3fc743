// A program folder of its own for one test, with a fresh copy of the shipped database.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <stdexcept>
#include <string>

namespace kelvar::test {

class TemporaryProgramFolder {
public:
    TemporaryProgramFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "kelvar-test-").string();
        name.append(6, 'X');  // for mkdtemp to fill in
        if (mkdtemp(name.data()) == nullptr) {
            throw std::runtime_error("cannot make a temporary folder");
        }
        path_ = name;
        std::filesystem::copy_file(KELVAR_PRISTINE_DATABASE, database());
    }
    ~TemporaryProgramFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryProgramFolder(const TemporaryProgramFolder&) = delete;
    TemporaryProgramFolder& operator=(const TemporaryProgramFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path database() const { return path_ / "vestoraq.mdb"; }

private:
    std::filesystem::path path_;
};

}  // namespace kelvar::test
