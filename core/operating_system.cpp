#include "core/operating_system.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace kelvar {

std::tm local_time() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return local;
}

std::tm time_of_writing(const std::filesystem::path& file) {
    struct stat status {};
    if (stat(file.c_str(), &status) != 0) {
        throw std::system_error(errno, std::generic_category());
    }
    std::tm local{};
    localtime_r(&status.st_mtime, &local);
    return local;
}

std::filesystem::path running_program() {
    return std::filesystem::read_symlink("/proc/self/exe");
}

bool may_write_into(const std::filesystem::path& folder) {
    return access(folder.c_str(), W_OK) == 0;
}

std::optional<std::string> read_ordinary_file(const std::filesystem::path& file,
                                              std::size_t most_bytes) {
    const struct Descriptor {
        int number;
        ~Descriptor() { close(number); }
    } opened{open(file.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC)};
    struct stat status {};
    if (opened.number < 0 || fstat(opened.number, &status) != 0) {
        throw std::system_error(errno, std::generic_category());
    }
    if (!S_ISREG(status.st_mode) || static_cast<std::size_t>(status.st_size) > most_bytes) {
        return std::nullopt;
    }
    std::string text(static_cast<std::size_t>(status.st_size), '\0');
    std::size_t size = 0;
    ssize_t count = 0;
    while ((count = read(opened.number, text.data() + size, text.size() - size)) > 0) {
        size += static_cast<std::size_t>(count);
    }
    if (count < 0) {
        throw std::system_error(errno, std::generic_category());
    }
    text.resize(size);
    return text;
}

}  // namespace kelvar
