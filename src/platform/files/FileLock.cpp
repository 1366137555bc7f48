#include "platform/files/FileLock.h"

#include <sys/file.h>
#include <sys/stat.h>

#include <fcntl.h>

#include <cerrno>
#include <future>
#include <thread>
#include <utility>

namespace tarvo {
namespace {

using State = FileLock::State;

constexpr mode_t OwnerOnly = 0600;

int Lock(const Descriptor& file, int operation)
{
    int result = 0;
    do {
        result = flock(file.number(), operation);
    } while (result != 0 && errno == EINTR);
    return result;
}

// Who lets a lock go and comes again at once would be faster than those whom the system only wakes
// up then. So whoever is next waits with another lock on the file, which everybody must have first.
// Where there are none of its kind, chance decides.
class Turnstile {
public:
    explicit Turnstile(const Descriptor& file) : file_(file) {}

    /// @return false when somebody else has it
    bool tryEnter() const { return change(F_OFD_SETLK, F_WRLCK) == 0 || errno != EAGAIN; }
    void enter() const { change(F_OFD_SETLKW, F_WRLCK); }
    void leave() const { change(F_OFD_SETLK, F_UNLCK); }

private:
    int change(int command, short type) const
    {
        struct flock whole = {};
        whole.l_type = type;
        whole.l_whence = SEEK_SET;
        int result = 0;
        do {
            result = fcntl(file_.number(), command, &whole);
        } while (result != 0 && errno == EINTR);
        return result;
    }

    const Descriptor& file_;
};

// The system's wait has no end, so a holder that is stopped would stop the dialog with it. Asking
// again and again instead leaves it to chance who among many is next. So a thread waits, which
// gives back what it gets too late.
State Wait(std::shared_ptr<const Descriptor> file, std::chrono::milliseconds patience)
{
    std::promise<State> answer;
    std::future<State> future = answer.get_future();
    std::thread([file = std::move(file), answer = std::move(answer)]() mutable {
        const Turnstile turnstile(*file);
        turnstile.enter();
        const State state = Lock(*file, LOCK_EX) == 0 ? State::Held : State::Impossible;
        turnstile.leave();
        file.reset(); // the last owner closes, which unlocks
        answer.set_value(state);
    }).detach();
    return future.wait_for(patience) == std::future_status::ready ? future.get() : State::TimedOut;
}

State Take(const std::shared_ptr<const Descriptor>& file, std::chrono::milliseconds patience)
{
    if (!file->valid()) {
        return State::Impossible;
    }
    const Turnstile turnstile(*file);
    if (turnstile.tryEnter()) {
        const int error = Lock(*file, LOCK_EX | LOCK_NB) == 0 ? 0 : errno;
        turnstile.leave();
        if (error != EWOULDBLOCK) {
            return error == 0 ? State::Held : State::Impossible;
        }
    }
    return patience.count() > 0 ? Wait(file, patience) : State::TimedOut;
}

int OpenLockFile(const std::string& path)
{
    return open(path.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, OwnerOnly);
}

} // namespace

FileLock::FileLock(const std::string& path, std::chrono::milliseconds patience)
    : file_(std::make_shared<const Descriptor>(OpenLockFile(path))), state_(Take(file_, patience))
{
    if (state_ != State::Held) {
        file_.reset();
    }
}

} // namespace tarvo
