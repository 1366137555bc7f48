#pragma once

#include "platform/files/Descriptor.h"

#include <chrono>
#include <memory>
#include <string>

namespace tarvo {

/// Keeps everybody else, other processes too, from taking the same lock until it is destroyed or
/// its process ends, in whatever way. The file is made when it is absent and stays, empty: were it
/// removed, two could hold a lock on two files of one name.
class FileLock {
public:
    enum class State {
        Held,
        Impossible, // no lock file there, or the file system or a confinement allows no locks
        TimedOut,   // somebody else has it
    };

    /// @param path      of the lock file; a symbolic link makes locking impossible
    /// @param patience  how long to wait for other holders, who go in the order in which they came
    FileLock(const std::string& path, std::chrono::milliseconds patience);

    State state() const { return state_; }

private:
    std::shared_ptr<const Descriptor> file_;
    State state_;
};

} // namespace tarvo
