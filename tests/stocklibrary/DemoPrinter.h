#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace tarvo {

/// The demonstration printer as a process of its own, for as long as this lives. Its media are
/// those of examples/press.media.
class DemoPrinter {
public:
    static constexpr std::size_t MediaCount = 10;

    /// @param arguments  such as {"--misbehave", "silent"}
    explicit DemoPrinter(const std::vector<std::string>& arguments);
    DemoPrinter(const DemoPrinter&) = delete;
    DemoPrinter& operator=(const DemoPrinter&) = delete;
    ~DemoPrinter();

    /// "127.0.0.1:PORT"; "" when it did not start.
    const std::string& authority() const { return authority_; }
    std::string port() const { return authority_.substr(authority_.find(':') + 1); }

private:
    pid_t process_ = -1;
    std::string authority_;
};

} // namespace tarvo
