#include "settings/TicketAccess.h"

#include "platform/cf/CFPropertyList.h"
#include "platform/printing/PMPrintSession.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

struct NumberCase {
    const char* name;
    CFPropertyList value;
    std::optional<std::int32_t> number;
};

TEST(TicketNumber, AnyOtherTypeCountsAsAbsent)
{
    const NumberCase cases[] = {
        {"number",         7,            7         },
        {"unset",          UnsetValue,   UnsetValue},
        {"whole real",     7.0,          7         },
        {"beyond 32 bits", 4294967297LL, {}        },
        {"boolean",        true,         {}        },
        {"text",           "7",          {}        },
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        CFDictionary dictionary;
        dictionary.set("Size", row.value);
        std::int32_t value = -1;
        EXPECT_EQ(GetCFIndexFromCFDictionary(&dictionary, "Size", &value), row.number.has_value());
        EXPECT_EQ(value, row.number.value_or(-1));
        EXPECT_FALSE(GetCFIndexFromCFDictionary(&dictionary, "size", &value));
        EXPECT_FALSE(GetCFIndexFromCFDictionary(&dictionary, "Size", nullptr));
    }
    EXPECT_FALSE(GetCFIndexFromCFDictionary(nullptr, "Size", nullptr));
}

TEST(TicketNumber, ReplacesAValueOfAnotherType)
{
    CFDictionary dictionary;
    dictionary.set("Size", "text");
    WriteTicketValue(dictionary, "Size", UnsetValue);
    EXPECT_EQ(*dictionary.find("Size"), CFPropertyList(-2147483648LL));
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
