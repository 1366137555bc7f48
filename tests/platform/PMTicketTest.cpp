#include "platform/printing/PMTicket.h"

#include "platform/printing/PMPrintSession.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvo {
namespace {

using testing::ElementsAre;

const CFDictionary AllKinds(std::vector<CFDictionary::Entry>{
    {"number",     7              },
    {"real",       7.0            },
    {"fraction",   7.5            },
    {"large",      2147483648     },
    {"boolean",    true           },
    {"string",     "text"         },
    {"date",       CFDate{1}      },
    {"data",       CFData{"bytes"}},
    {"array",      CFArray{1}     },
    {"dictionary", CFDictionary() }
});

// The keys under which the getter finds something; it must leave the value alone at all others.
template <typename Value>
std::vector<std::string> KeysReadBy(OSStatus (PMTicket::*get)(std::string_view, Value*) const,
                                    const Value& untouched)
{
    const PMTicket ticket(AllKinds, PanelClient);
    std::vector<std::string> keys = ticket.keys();
    keys.emplace_back("absent");
    std::erase_if(keys, [&](const std::string& key) {
        Value value = untouched;
        const OSStatus status = (ticket.*get)(key, &value);
        EXPECT_EQ(status, value == untouched ? StatusItemNotFound : StatusOk) << key;
        return status != StatusOk;
    });
    EXPECT_EQ((ticket.*get)(keys.front(), nullptr), StatusBadArgument);
    return keys;
}

TEST(PMTicketGetters, FindItemsOfTheirTypeAndTouchNothingElse)
{
    EXPECT_THAT(KeysReadBy(&PMTicket::getNumber, -1), ElementsAre("number", "real"));
    EXPECT_THAT(KeysReadBy(&PMTicket::getBoolean, false), ElementsAre("boolean"));
    EXPECT_THAT(KeysReadBy<std::string>(&PMTicket::getString, "untouched"), ElementsAre("string"));
    EXPECT_THAT(KeysReadBy(&PMTicket::getDate, CFDate{2}), ElementsAre("date"));
    EXPECT_THAT(KeysReadBy<const CFData*>(&PMTicket::getData, nullptr), ElementsAre("data"));
    EXPECT_THAT(KeysReadBy<const CFArray*>(&PMTicket::getArray, nullptr), ElementsAre("array"));
    EXPECT_THAT(KeysReadBy<const CFDictionary*>(&PMTicket::getDictionary, nullptr),
                ElementsAre("dictionary"));
    EXPECT_EQ(KeysReadBy<const CFPropertyList*>(&PMTicket::getItem, nullptr).size(),
              AllKinds.size());
}

TEST(PMTicketLock, HoldsAgainstOtherClientsOnly)
{
    PMTicket ticket;
    ASSERT_EQ(ticket.setItem(PanelClient, "a", 1, true), StatusOk);
    EXPECT_EQ(ticket.setItem(ImportClient, "a", 2), StatusItemLocked);
    EXPECT_EQ(ticket.removeItem(ImportClient, "a"), StatusItemLocked);
    EXPECT_EQ(ticket.item("a")->value, CFPropertyList(1));
    EXPECT_EQ(ticket.item("a")->client, PanelClient);

    EXPECT_EQ(ticket.setItem(PanelClient, "a", "text"), StatusOk); // unlocks, changes the type
    EXPECT_EQ(ticket.setItem(ImportClient, "a", 3, true), StatusOk);
    EXPECT_EQ(ticket.item("a")->client, ImportClient);
    EXPECT_EQ(ticket.removeItem(ImportClient, "a"), StatusOk);
    EXPECT_EQ(ticket.removeItem(ImportClient, "a"), StatusItemNotFound);
    EXPECT_EQ(ticket.count(), 0U);
}

TEST(PMTicketKeys, StandInTheOrderOfTheirComing)
{
    PMTicket ticket(AllKinds, ImportClient);
    EXPECT_EQ(ticket.item("real")->client, ImportClient);
    EXPECT_FALSE(ticket.item("real")->locked);
    ticket.setItem(PanelClient, "number", 5); // stays first
    ticket.removeItem(PanelClient, "real");
    ticket.setItem(PanelClient, "real", 6);
    EXPECT_THAT(ticket.keys(), ElementsAre("number", "fraction", "large", "boolean", "string",
                                           "date", "data", "array", "dictionary", "real"));
}

TEST(PMPrintSession, GivesEachTicketByItsName)
{
    PMPrintSession session;
    session.addTicket(JobTicketName).setItem(PanelClient, "a", 1);
    PMTicket* job = session.ticket(JobTicketName);
    session.addTicket(PrinterInfoTicketName);
    EXPECT_EQ(session.ticket(JobTicketName), job); // where it was, though another came
    EXPECT_EQ(job->count(), 1U);
    EXPECT_EQ(session.ticket("PMJobInfoTicket"), nullptr);
    EXPECT_EQ(session.addTicket(JobTicketName).count(), 0U);
}

} // namespace
} // namespace tarvo
