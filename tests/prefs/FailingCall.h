#pragma once

namespace tarvo {

/// As long as it lives, one function of the system fails for the whole program: "write", "fsync" or
/// "rename". What is written before that is half of what was asked for.
class FailingCall {
public:
    /// @param error  errno of the failure
    /// @param after  so many calls still work
    FailingCall(const char* name, int error, int after = 0);
    FailingCall(const FailingCall&) = delete;
    FailingCall& operator=(const FailingCall&) = delete;
    ~FailingCall();
};

} // namespace tarvo
