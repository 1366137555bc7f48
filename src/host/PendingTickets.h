#pragma once

#include "records/JobOptions.h"

#include <chrono>
#include <list>
#include <memory>

namespace tarvo {

/// What a dialog has decided waits here for its job: an application may end the dialog first, and
/// may have other dialogs answered before it makes the job. A ticket serves one job.
class PendingTickets {
public:
    using Clock = std::chrono::steady_clock;
    /// What an application takes from a dialog and gives to its job, kept alive so that nothing
    /// else has its address; by it the job's dialog is known. Null when there is none.
    using Token = std::shared_ptr<const void>;
    /// An application that makes no job for a dialog leaves its ticket to a job that comes later.
    /// Some first draw all pages, so it waits as long as that may take, and no longer.
    static constexpr std::chrono::minutes Lifetime{5};

    /// Those of the process.
    static PendingTickets& Shared();

    /// @param options  nullopt from a dialog that has nothing to say to its job
    void keep(const std::string& printer, Token token, std::optional<JobOptions> options,
              Clock::time_point now = Clock::now());
    /// For a job of the printer with that token: what waits with the same token, else what waits
    /// for the printer. Of several that fit none is given, and all go: a job without a ticket is
    /// better than one with another's.
    std::optional<JobOptions> take(const std::string& printer, const void* token,
                                   Clock::time_point now = Clock::now());

private:
    struct Ticket {
        std::string printer;
        Token token;
        std::optional<JobOptions> options;
        Clock::time_point end;
    };
    std::list<Ticket> waiting_;
};

} // namespace tarvo
