#pragma once

#include "records/JobOptions.h"

namespace tarvo {

/// What a dialog has decided waits here for its job: an application may end the dialog first. The
/// newest of a printer wins, and serves one job.
class PendingTickets {
public:
    /// Those of the process.
    static PendingTickets& Shared();

    void keep(const std::string& printer, JobOptions options);
    /// @return nullopt when nothing waits for a job of the printer
    std::optional<JobOptions> take(const std::string& printer);

private:
    OrderedMap<JobOptions> waiting_;
};

} // namespace tarvo
