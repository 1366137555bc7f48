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

std::string Taken(PendingTickets& tickets, const std::string& printer, const void* token,
                  Clock::time_point now)
{
    const auto options = tickets.take(printer, token, now);
    return options ? *options->find("Duplex") : "none";
}

TEST(PendingTickets, AreKnownByWhatTheirDialogGaveTheJob)
{
    const Clock::time_point now;
    const PendingTickets::Token first = std::make_shared<int>();
    const PendingTickets::Token second = std::make_shared<int>();
    const PendingTickets::Token silent = std::make_shared<int>();
    PendingTickets tickets;
    EXPECT_EQ(Taken(tickets, "press", first.get(), now), "none");
    tickets.keep("press", first, Options("first"), now);
    tickets.keep("other", first, Options("other"), now);
    tickets.keep("press", second, Options("second"), now);
    tickets.keep("press", silent, std::nullopt, now);
    EXPECT_EQ(Taken(tickets, "press", first.get(), now), "first");
    EXPECT_EQ(Taken(tickets, "press", silent.get(), now), "none");
    EXPECT_EQ(Taken(tickets, "press", second.get(), now), "second");
    EXPECT_EQ(Taken(tickets, "press", second.get(), now), "none");
    EXPECT_EQ(Taken(tickets, "other", first.get(), now), "other");
}

TEST(PendingTickets, AreGivenToAJobThatIsNotKnownWhenOnlyOneWaits)
{
    const Clock::time_point now;
    const PendingTickets::Token shared = std::make_shared<int>();
    PendingTickets tickets;
    tickets.keep("press", shared, Options("only"), now);
    tickets.keep("other", shared, Options("other"), now);
    EXPECT_EQ(Taken(tickets, "press", nullptr, now), "only");
    for (const void* token : {static_cast<const void*>(nullptr), shared.get()}) {
        tickets.keep("press", shared, Options("one"), now);
        tickets.keep("press", shared, Options("two"), now);
        EXPECT_EQ(Taken(tickets, "press", token, now), "none");
        EXPECT_EQ(Taken(tickets, "press", token, now), "none") << "both are gone";
    }
}

TEST(PendingTickets, WaitNotForEver)
{
    const Clock::time_point begin;
    const Clock::time_point end = begin + PendingTickets::Lifetime;
    const PendingTickets::Token token = std::make_shared<int>();
    PendingTickets tickets;
    tickets.keep("press", token, Options("drawn slowly"), begin);
    EXPECT_EQ(Taken(tickets, "press", token.get(), end - std::chrono::milliseconds(1)),
              "drawn slowly");
    tickets.keep("press", token, Options("never printed"), begin);
    EXPECT_EQ(Taken(tickets, "press", token.get(), end), "none");
    tickets.keep("press", token, Options("later"), end);
    EXPECT_EQ(Taken(tickets, "press", token.get(), end), "later") << "the other is gone for good";
}

} // namespace
} // namespace tarvo
