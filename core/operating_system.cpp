#include "core/operating_system.h"

#include <unistd.h>

namespace kelvar {

std::tm local_time() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return local;
}

bool may_write_into(const std::filesystem::path& folder) {
    return access(folder.c_str(), W_OK) == 0;
}

}  // namespace kelvar
