#include "host/PendingTickets.h"

namespace tarvo {

PendingTickets& PendingTickets::Shared()
{
    static PendingTickets tickets;
    return tickets;
}

void PendingTickets::keep(const std::string& printer, JobOptions options)
{
    waiting_.set(printer, std::move(options));
}

std::optional<JobOptions> PendingTickets::take(const std::string& printer)
{
    JobOptions* waiting = waiting_.find(printer);
    if (waiting == nullptr) {
        return std::nullopt;
    }
    std::optional<JobOptions> taken(std::move(*waiting));
    waiting_.remove(printer);
    return taken;
}

} // namespace tarvo
