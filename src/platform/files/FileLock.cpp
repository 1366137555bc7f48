#include "platform/files/FileLock.h"

#include <sys/file.h>
#include <sys/stat.h>

#include <fcntl.h>

#include <cerrno>
#include <thread>

namespace tarvo {
namespace {

constexpr mode_t OwnerOnly = 0600;

// The system's own wait has no end: a holder that is stopped would stop the dialog with it.
FileLock::State Take(const Descriptor& file, std::chrono::milliseconds patience)
{
    using Clock = std::chrono::steady_clock;
    constexpr std::chrono::microseconds Pause(500);
    const auto deadline = Clock::now() + patience;
    while (file.valid()) {
        if (flock(file.number(), LOCK_EX | LOCK_NB) == 0) {
            return FileLock::State::Held;
        }
        if (errno != EWOULDBLOCK && errno != EINTR) {
            break;
        }
        if (Clock::now() >= deadline) {
            return FileLock::State::TimedOut;
        }
        std::this_thread::sleep_for(Pause);
    }
    return FileLock::State::Impossible;
}

} // namespace

FileLock::FileLock(const std::string& path, std::chrono::milliseconds patience)
    : file_(open(path.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, OwnerOnly)),
      state_(Take(file_, patience))
{
}

} // namespace tarvo
