#include "settings/TicketAccess.h"

#include "platform/cf/CFPropertyList.h"
#include "platform/printing/PMPrintSession.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

TEST(TicketNumber, AnyOtherTypeCountsAsAbsent)
{
    CFDictionary dictionary;
    std::int32_t value = -1;
    for (const CFPropertyList& other : {CFPropertyList(true), CFPropertyList(4294967297)}) {
        dictionary.set("Size", other);
        EXPECT_FALSE(GetCFIndexFromCFDictionary(&dictionary, "Size", &value));
        EXPECT_EQ(value, -1);
    }
    WriteTicketValue(dictionary, "Size", UnsetValue);
    EXPECT_EQ(*dictionary.find("Size"), CFPropertyList(-2147483648LL));
    EXPECT_FALSE(GetCFIndexFromCFDictionary(&dictionary, "size", &value));
    EXPECT_EQ(value, -1);
    EXPECT_TRUE(GetCFIndexFromCFDictionary(&dictionary, "Size", &value));
    EXPECT_EQ(value, UnsetValue);
    EXPECT_FALSE(GetCFIndexFromCFDictionary(&dictionary, "Size", nullptr));
    EXPECT_FALSE(GetCFIndexFromCFDictionary(nullptr, "Size", &value));
}

TEST(TicketOfSession, AbsentIsNoFailure)
{
    PMPrintSession session;
    PMTicket& jobTicket = session.addTicket(JobTicketName);
    PMTicket untouched;
    PMTicket* ticket = &untouched;
    EXPECT_EQ(GetTicketFromSession(&session, PrinterInfoTicketName, &ticket), 0);
    EXPECT_EQ(ticket, &untouched);
    EXPECT_EQ(GetTicketFromSession(&session, JobTicketName, &ticket), 0);
    EXPECT_EQ(ticket, &jobTicket);
    EXPECT_EQ(GetTicketFromSession(nullptr, JobTicketName, &ticket), -50);
    EXPECT_EQ(GetTicketFromSession(&session, JobTicketName, nullptr), -50);
}

} // namespace
} // namespace tarvo
