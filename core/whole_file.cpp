#include "core/whole_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <vector>

#include "core/module1.h"
#include "core/operating_system.h"

namespace kelvar {

namespace {

std::filesystem::path behind_links(std::filesystem::path file) {
    constexpr int most_links = 40;  // as the system follows
    std::error_code none;
    for (int links = 0; links < most_links && std::filesystem::is_symlink(file, none); ++links) {
        file = file.parent_path() / std::filesystem::read_symlink(file, none);
    }
    return file;
}

std::vector<std::filesystem::path> own_files(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files{running_program()};
    for (const char* suffix : {"", "-journal", "-wal", "-shm"}) {
        files.push_back(folder / (std::string(Module1::database_name) + suffix));
    }
    for (const char* name :
         {"kelvar", "kelvar-statements", "vestoraq.hlp", "office.html", KELVAR_REPORT_TEMPLATES}) {
        files.push_back(folder / name);
    }
    return files;
}

// True also for one that is not there: a file under the name of a journal would be taken for one.
bool belongs_to_program(const std::filesystem::path& folder, const std::filesystem::path& file) {
    return std::ranges::any_of(own_files(folder), [&](const std::filesystem::path& own) {
        std::error_code none;
        return std::filesystem::equivalent(own, file, none) ||
               std::filesystem::weakly_canonical(own, none) ==
                   std::filesystem::weakly_canonical(file, none);
    });
}

}  // namespace

WholeFile::WholeFile(const std::filesystem::path& program_folder, const std::filesystem::path& file)
    : shown_("The file " + file.string()) {
    std::error_code none;
    file_ = behind_links(std::filesystem::absolute(file));
    if (belongs_to_program(program_folder, file_)) {
        throw FileError(shown_ + " belongs to the program and stays as it is.");
    }
    const bool there = std::filesystem::exists(file_, none);
    if (there && !std::filesystem::is_regular_file(file_, none)) {
        throw FileError(shown_ + " cannot be written: it is a device or a folder.");
    }
    if (there && access(file_.c_str(), W_OK) != 0) {
        refuse();
    }
    constexpr mode_t owner_only = S_IRUSR | S_IWUSR;
    descriptor_ = open(file_.parent_path().c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, owner_only);
    if (descriptor_ < 0 && (errno == EOPNOTSUPP || errno == EISDIR)) {
        open_with_name();
    }
    if (descriptor_ < 0) {
        refuse();
    }
}

// On file systems that know no files without a name.
void WholeFile::open_with_name() {
    std::string name = file_.string() + ".XXXXXX";
    descriptor_ = mkostemp(name.data(), O_CLOEXEC);
    named_ = descriptor_ < 0 ? "" : name;
}

WholeFile::~WholeFile() {
    if (descriptor_ >= 0) {
        close(descriptor_);
    }
    if (!named_.empty()) {
        unlink(named_.c_str());
    }
}

void WholeFile::refuse() const {
    throw FileError(
        fmt::format("{} cannot be written: {}.", shown_, std::generic_category().message(errno)));
}

// A disk that fills up takes a part without an error, which only the next write brings.
void WholeFile::write(std::string_view contents) {
    while (!contents.empty()) {
        const ssize_t taken = ::write(descriptor_, contents.data(), contents.size());
        if (taken < 0 && errno == EINTR) {
            continue;
        }
        if (taken <= 0) {
            refuse();
        }
        contents.remove_prefix(static_cast<std::size_t>(taken));
    }
}

void WholeFile::commit() {
    if (fsync(descriptor_) != 0 && errno != EINVAL && errno != EROFS) {
        refuse();
    }
    if (named_.empty()) {
        const std::string open_file = fmt::format("/proc/self/fd/{}", descriptor_);
        const auto name_it = [&](const std::filesystem::path& name) {
            return linkat(AT_FDCWD, open_file.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0;
        };
        if (name_it(file_)) {
            return;
        }
        if (errno != EEXIST) {
            refuse();
        }
        named_ = fmt::format("{}.{}", file_.string(), getpid());
        unlink(named_.c_str());
        if (!name_it(named_)) {
            refuse();
        }
    }
    if (rename(named_.c_str(), file_.c_str()) != 0) {
        refuse();
    }
    named_.clear();
}

void write_whole(const std::filesystem::path& program_folder, const std::filesystem::path& file,
                 std::string_view contents) {
    WholeFile whole(program_folder, file);
    whole.write(contents);
    whole.commit();
}

}  // namespace kelvar
