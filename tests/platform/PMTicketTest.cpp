#include "platform/printing/PMTicket.h"

#include "platform/printing/PMPrintSession.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvo {
namespace {

using testing::ElementsAre;

CFDictionary OneOfEachKind()
{
    CFDictionary values;
    values.set("number", 7);
    values.set("real", 7.0);
    values.set("fraction", 7.5);
    values.set("large", 2147483648);
    values.set("boolean", true);
    values.set("string", "text");
    values.set("date", CFDate{1});
    values.set("data", CFData{"bytes"});
    values.set("array", CFArray{1});
    values.set("dictionary", CFDictionary());
    return values;
}

const CFDictionary AllKinds = OneOfEachKind();

// The keys under which the getter finds something; it must leave the value alone at all others.
template <typename Value>
std::vector<std::string> KeysReadBy(OSStatus (PMTicket::*get)(std::string_view, Value*) const,
                                    const Value& untouched)
{
    const PMTicket ticket(AllKinds, PanelClient);
    std::vector<std::string> found;
    for (const std::string& key : ticket.keys()) {
        Value value = untouched;
        const OSStatus status = (ticket.*get)(key, &value);
        if (status == StatusOk) {
            found.push_back(key);
        } else {
            EXPECT_EQ(status, StatusItemNotFound) << key;
            EXPECT_EQ(value, untouched) << key;
        }
    }
    Value value = untouched;
    EXPECT_EQ((ticket.*get)("absent", &value), StatusItemNotFound);
    EXPECT_EQ(value, untouched);
    EXPECT_EQ((ticket.*get)(found.front(), nullptr), StatusBadArgument);
    return found;
}

TEST(PMTicketGetters, FindItemsOfTheirTypeAndTouchNothingElse)
{
    const CFData data;
    const CFArray array;
    const CFDictionary dictionary;
    EXPECT_THAT(KeysReadBy(&PMTicket::getNumber, -1), ElementsAre("number", "real"));
    EXPECT_THAT(KeysReadBy(&PMTicket::getBoolean, false), ElementsAre("boolean"));
    EXPECT_THAT(KeysReadBy<std::string>(&PMTicket::getString, "untouched"), ElementsAre("string"));
    EXPECT_THAT(KeysReadBy(&PMTicket::getDate, CFDate{2}), ElementsAre("date"));
    EXPECT_THAT(KeysReadBy(&PMTicket::getData, &data), ElementsAre("data"));
    EXPECT_THAT(KeysReadBy(&PMTicket::getArray, &array), ElementsAre("array"));
    EXPECT_THAT(KeysReadBy(&PMTicket::getDictionary, &dictionary), ElementsAre("dictionary"));
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
    EXPECT_TRUE(ticket.item("a")->locked);

    EXPECT_EQ(ticket.setItem(PanelClient, "a", "text"), StatusOk); // unlocks, changes the type
    EXPECT_EQ(ticket.setItem(ImportClient, "a", 3), StatusOk);
    EXPECT_EQ(ticket.item("a")->client, ImportClient);
    EXPECT_EQ(ticket.setItem(ImportClient, "a", 3, true), StatusOk);
    EXPECT_EQ(ticket.removeItem(ImportClient, "a"), StatusOk);
    EXPECT_EQ(ticket.removeItem(ImportClient, "a"), StatusItemNotFound);
    EXPECT_EQ(ticket.count(), 0U);
}

TEST(PMTicketKeys, StandInTheOrderOfTheirComing)
{
    CFDictionary values;
    values.set("z", 1);
    values.set("a", 2);
    values.set("m", 3);
    PMTicket ticket(values, ImportClient);
    EXPECT_EQ(ticket.item("a")->client, ImportClient);
    EXPECT_FALSE(ticket.item("a")->locked);
    ticket.setItem(PanelClient, "b", 4);
    ticket.setItem(PanelClient, "z", 5); // stays first
    ticket.removeItem(PanelClient, "a");
    ticket.setItem(PanelClient, "a", 6);
    EXPECT_THAT(ticket.keys(), ElementsAre("z", "m", "b", "a"));
}

TEST(PMPrintSession, GivesEachTicketByItsName)
{
    PMPrintSession session;
    session.addTicket(JobTicketName).setItem(PanelClient, "a", 1);
    PMTicket* job = session.ticket(JobTicketName);
    session.addTicket(PrinterInfoTicketName);
    ASSERT_NE(job, nullptr);
    EXPECT_EQ(session.ticket(JobTicketName), job); // where it was, though another came
    EXPECT_TRUE(job->containsItem("a"));
    EXPECT_EQ(session.ticket(PrinterInfoTicketName)->count(), 0U);
    EXPECT_EQ(session.ticket("PMJobInfoTicket"), nullptr);
    EXPECT_EQ(session.addTicket(JobTicketName).count(), 0U);
}

} // namespace
} // namespace tarvo
