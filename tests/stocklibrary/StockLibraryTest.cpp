#include "stocklibrary/StockLibrary.h"

#include "support/TicketText.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

TEST(StockLibraryEntry, HasItsKeysAndComesBack)
{
    CFDictionary ticket = TicketFromText(
        R"(EntryStatus: 1, Stock: {Size: 4, Color: 2, Type: 1}, .StockLibrary.UUID: "U",
           .StockLibrary.NameKey: "Blue")");
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
    EXPECT_EQ(StockLibrary(TicketFromText(R"(EntryStatus: true, Stock: "A4", .StockLibrary.UUID: 1,
                                             .StockLibrary.NameKey: [])")),
              StockLibrary());
}

struct ValidityCase {
    const char* name;
    const char* ticket;
    std::int32_t status;
};

// clang-format off
constexpr ValidityCase ValidityCases[] = {
    {"nothing set",                "Stock: {}",                                            0},
    {"all offered, in use",        "EntryStatus: 1, Stock: {Size: 75, Color: 10, Type: 7}", 1},
    {"size of the printer's only", "Stock: {Size: 18, Color: 1, Type: 1}",                 2},
    {"colour of PPDs only",        "EntryStatus: 1, Stock: {Size: 4, Color: 14, Type: 1}", 2},
    {"envelope",                   "Stock: {Size: 4, Color: 1, Type: 8}",                  2},
    {"type 0 ends the search",     "Stock: {Size: 4, Color: 1, Type: 0}",                  2},
    {"invalid once",               "EntryStatus: 2, Stock: {Size: 4, Color: 1, Type: 1}",  2},
};
// clang-format on

TEST(StockLibraryEntry, IsInvalidWhenTheMenusLackIt)
{
    for (const auto& row : ValidityCases) {
        EXPECT_EQ(StockLibrary(TicketFromText(row.ticket)).status(), row.status) << row.name;
    }
}

TEST(StockLibraryEntry, IsCopiedAsItStands)
{
    const StockLibrary entry(TicketFromText("Stock: {Type: 2, Color: 2}")); // a blue transparency
    StockLibrary copy;
    copy = entry;
    EXPECT_EQ(copy.stock().color(), 2);
    copy.setStock(entry.stock());
    EXPECT_EQ(copy.stock().color(), 6);
}

} // namespace
} // namespace tarvo
