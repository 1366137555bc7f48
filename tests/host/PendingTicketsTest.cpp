#include "host/PendingTickets.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

using Clock = PendingTickets::Clock;

JobOptions Options(const std::string& value)
{
    JobOptions options;
    options.set("Duplex", value);
    return options;
}

std::string Taken(PendingTickets& tickets, const std::string& printer, Clock::time_point now)
{
    const auto options = tickets.take(printer, now);
    return options ? *options->find("Duplex") : "none";
}

TEST(PendingTickets, TheNewestOfAPrinterServesOneJob)
{
    const Clock::time_point now;
    PendingTickets tickets;
    EXPECT_EQ(Taken(tickets, "press", now), "none");
    tickets.keep("press", Options("old"), now);
    tickets.keep("other", Options("other"), now);
    tickets.keep("press", Options("new"), now);
    EXPECT_EQ(Taken(tickets, "press", now), "new");
    EXPECT_EQ(Taken(tickets, "press", now), "none");
    EXPECT_EQ(Taken(tickets, "other", now), "other");
}

TEST(PendingTickets, WaitNotForEver)
{
    const Clock::time_point begin;
    const Clock::time_point end = begin + PendingTickets::Lifetime;
    PendingTickets tickets;
    tickets.keep("press", Options("drawn slowly"), begin);
    EXPECT_EQ(Taken(tickets, "press", end - std::chrono::milliseconds(1)), "drawn slowly");
    tickets.keep("press", Options("never printed"), begin);
    EXPECT_EQ(Taken(tickets, "press", end), "none");
    EXPECT_EQ(Taken(tickets, "press", begin), "none") << "it is gone for good";
}

} // namespace
} // namespace tarvo
