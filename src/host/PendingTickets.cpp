#include "host/PendingTickets.h"

namespace tarvo {

PendingTickets& PendingTickets::Shared()
{
    static PendingTickets tickets;
    return tickets;
}

void PendingTickets::keep(const std::string& printer, Token token,
                          std::optional<JobOptions> options, Clock::time_point now)
{
    waiting_.remove_if([now](const Ticket& ticket) { return now >= ticket.end; });
    waiting_.push_back({printer, std::move(token), std::move(options), now + Lifetime});
}

std::optional<JobOptions> PendingTickets::take(const std::string& printer, const void* token,
                                               Clock::time_point now)
{
    std::list<Ticket> fitting;
    const auto takeAll = [&](const auto& fits) {
        for (auto ticket = waiting_.begin(); ticket != waiting_.end();) {
            const auto each = ticket++;
            if (each->printer == printer && now < each->end && fits(*each)) {
                fitting.splice(fitting.end(), waiting_, each);
            }
        }
    };
    takeAll(
        [token](const Ticket& ticket) { return token != nullptr && ticket.token.get() == token; });
    if (fitting.empty()) {
        takeAll([](const Ticket& /*ticket*/) { return true; });
    }
    return fitting.size() == 1 ? std::move(fitting.front().options) : std::nullopt;
}

} // namespace tarvo
