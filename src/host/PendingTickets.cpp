#include "host/PendingTickets.h"

namespace tarvo {

PendingTickets& PendingTickets::Shared()
{
    static PendingTickets tickets;
    return tickets;
}

void PendingTickets::keep(const std::string& printer, JobOptions options, Clock::time_point now)
{
    waiting_.set(printer, Ticket{std::move(options), now + Lifetime});
}

std::optional<JobOptions> PendingTickets::take(const std::string& printer, Clock::time_point now)
{
    Ticket* ticket = waiting_.find(printer);
    if (ticket == nullptr) {
        return std::nullopt;
    }
    std::optional<JobOptions> taken;
    if (now < ticket->end) {
        taken = std::move(ticket->options);
    }
    waiting_.remove(printer);
    return taken;
}

} // namespace tarvo
