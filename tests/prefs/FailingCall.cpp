#include "FailingCall.h"

#include <sys/syscall.h>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>

namespace {

struct Failure {
    std::string_view name;
    int error = 0;
    int callsBefore = 0;
};

Failure failure;

bool Fails(std::string_view name)
{
    if (failure.name != name || failure.callsBefore-- > 0) {
        return false;
    }
    errno = failure.error;
    return true;
}

} // namespace

namespace tarvo {

FailingCall::FailingCall(const char* name, int error, int after)
{
    failure = {name, error, after};
}

FailingCall::~FailingCall()
{
    failure = {};
}

} // namespace tarvo

// The libraries of the program find these before those of the C library.
#define TARVO_SYSTEM_CALL extern "C" __attribute__((visibility("default")))

TARVO_SYSTEM_CALL ssize_t write(int file, const void* bytes, size_t size)
{
    if (Fails("write")) {
        return -1;
    }
    const size_t taken = failure.name == "write" ? (size + 1) / 2 : size;
    return syscall(SYS_write, file, bytes, taken);
}

TARVO_SYSTEM_CALL int fsync(int file)
{
    return Fails("fsync") ? -1 : static_cast<int>(syscall(SYS_fsync, file));
}

TARVO_SYSTEM_CALL int rename(const char* from, const char* to) noexcept
{
    return Fails("rename")
               ? -1
               : static_cast<int>(syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}
