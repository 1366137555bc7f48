#pragma once

#include "records/JobOptions.h"

#include <chrono>

namespace tarvo {

/// What a dialog has decided waits here for its job: an application may end the dialog first. The
/// newest of a printer wins, and serves one job.
class PendingTickets {
public:
    using Clock = std::chrono::steady_clock;
    /// An application that makes no job for a dialog leaves its ticket to a job that comes later.
    /// Some first draw all pages, so it waits as long as that may take, and no longer.
    static constexpr std::chrono::minutes Lifetime{5};

    /// Those of the process.
    static PendingTickets& Shared();

    void keep(const std::string& printer, JobOptions options, Clock::time_point now = Clock::now());
    /// @return nullopt when nothing waits for a job of the printer
    std::optional<JobOptions> take(const std::string& printer,
                                   Clock::time_point now = Clock::now());

private:
    struct Ticket {
        JobOptions options;
        Clock::time_point end;
    };
    OrderedMap<Ticket> waiting_;
};

} // namespace tarvo
