#include "platform/files/FileIdentity.h"

#include <sys/stat.h>

namespace tarvo {

std::optional<FileIdentity> IdentityOfFile(const std::string& path)
{
    struct stat state = {};
    if (lstat(path.c_str(), &state) != 0) {
        return std::nullopt;
    }
    return FileIdentity{state.st_dev,         state.st_ino,          state.st_size,
                        state.st_mtim.tv_sec, state.st_mtim.tv_nsec, state.st_ctim.tv_sec,
                        state.st_ctim.tv_nsec};
}

} // namespace tarvo
