#include "stocklibrary/StockLibrary.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

CFDictionary StockTicket(std::int32_t size, std::int32_t color, std::int32_t type)
{
    CFDictionary ticket;
    ticket.set("Size", size);
    ticket.set("Color", color);
    ticket.set("Type", type);
    return ticket;
}

TEST(StockLibraryEntry, HasItsKeysAndComesBack)
{
    CFDictionary ticket;
    ticket.set("EntryStatus", 1);
    ticket.set("Stock", StockTicket(4, 2, 1));
    ticket.set("com.tarvo.print.StockLibrary.UUID", "U");
    ticket.set("com.tarvo.print.StockLibrary.NameKey", "Blue");
    StockLibrary entry(ticket);
    EXPECT_EQ(entry.asTicket(), ticket);
    EXPECT_EQ(entry.name(), "Blue");

    entry.setName("");
    entry.setUUID("");
    ticket.remove("com.tarvo.print.StockLibrary.UUID");
    ticket.remove("com.tarvo.print.StockLibrary.NameKey");
    EXPECT_EQ(entry.asTicket(), ticket);
    EXPECT_EQ(StockLibrary(ticket), entry);
}

TEST(StockLibraryEntry, KeepsItsDefaultsForWhatIsNoneOfItsTypes)
{
    CFDictionary ticket;
    EXPECT_EQ(StockLibrary(ticket), StockLibrary());
    ticket.set("EntryStatus", true);
    ticket.set("Stock", "A4");
    ticket.set("com.tarvo.print.StockLibrary.UUID", 1);
    ticket.set("com.tarvo.print.StockLibrary.NameKey", CFArray());
    EXPECT_EQ(StockLibrary(ticket), StockLibrary());
}

struct ValidityCase {
    const char* name;
    std::int32_t size, color, type;
    std::int32_t stored, status;
};

constexpr ValidityCase ValidityCases[] = {
    {"nothing set",                UnsetValue, UnsetValue, UnsetValue, 0, 0},
    {"all offered, in use",        75,         10,         7,          1, 1},
    {"size of the printer's only", 18,         1,          1,          0, 2},
    {"colour of PPDs only",        4,          14,         1,          1, 2},
    {"envelope",                   4,          1,          8,          0, 2},
    {"type 0 ends the search",     4,          1,          0,          0, 2},
    {"invalid once",               4,          1,          1,          2, 2},
};

TEST(StockLibraryEntry, IsInvalidWhenTheMenusLackIt)
{
    for (const auto& row : ValidityCases) {
        SCOPED_TRACE(row.name);
        CFDictionary ticket;
        ticket.set("EntryStatus", row.stored);
        ticket.set("Stock", StockTicket(row.size, row.color, row.type));
        EXPECT_EQ(StockLibrary(ticket).status(), row.status);
    }
}

TEST(StockLibraryEntry, IsCopiedAsItStands)
{
    CFDictionary ticket;
    ticket.set("Stock", StockTicket(4, 2, 2)); // a blue transparency
    const StockLibrary entry(ticket);
    StockLibrary copy;
    copy = entry;
    EXPECT_EQ(copy.stock().color(), 2);
    copy.setStock(entry.stock());
    EXPECT_EQ(copy.stock().color(), 6);
}

} // namespace
} // namespace tarvo
