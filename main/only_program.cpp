#include "main/only_program.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

namespace kelvar {

OnlyProgram::OnlyProgram(const std::filesystem::path& program_folder)
    : folder_(open(program_folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)),
      is_second_(flock(folder_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {}

OnlyProgram::~OnlyProgram() {
    if (folder_ >= 0) {
        close(folder_);
    }
}

}  // namespace kelvar
