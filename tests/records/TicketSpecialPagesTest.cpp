#include "records/TicketSpecialPages.h"

#include "platform/printing/PMTicket.h"
#include "support/TicketText.h"

#include <gtest/gtest.h>

#include <array>

namespace tarvo {
namespace {

constexpr std::string_view FrontKey = "com.tarvo.print.SpecialPages.FrontCover";
constexpr std::string_view BackKey = "com.tarvo.print.SpecialPages.BackCover";
constexpr std::string_view InsertsKey = "com.tarvo.print.SpecialPages.InsertList";
constexpr std::string_view ExceptionsKey = "com.tarvo.print.SpecialPages.ExceptionList";

std::optional<Cover> CoverOfSides(std::int32_t sidesImaged)
{
    Cover cover;
    cover.setSidesImaged(sidesImaged);
    return sidesImaged == 0 ? std::nullopt : std::optional(cover);
}

std::int32_t SidesOf(const std::optional<Cover>& cover)
{
    return cover ? cover->sidesImaged() : 0;
}

std::int32_t SidesInTicket(const PMTicket& ticket, std::string_view key)
{
    const CFDictionary* cover = nullptr;
    return ticket.getDictionary(key, &cover) == StatusOk ? cover->int32("SidesImaged").value_or(-1)
                                                         : 0;
}

// Sides imaged of each cover; 0 stands for none.
struct CoverCase {
    const char* name;
    bool isBooklet;
    std::int32_t front, back;               // handed in
    std::int32_t frontWritten, backWritten; // into a ticket that has both
    std::int32_t backRead;                  // from that ticket
};

constexpr CoverCase CoverCases[] = {
    {"same covers",             false, 2, 2, 2, 2, 2},
    {"front only",              false, 2, 0, 2, 0, 0},
    {"booklet, same covers",    true,  2, 2, 2, 0, 2},
    {"booklet, front only",     true,  2, 0, 2, 0, 2},
    {"booklet, back only",      true,  0, 3, 0, 3, 3},
    {"booklet, written anyway", true,  2, 3, 2, 3, 2},
};

TEST(TicketCovers, LeaveOutTheTwinThatABookletHasAtItsBack)
{
    for (const auto& row : CoverCases) {
        SCOPED_TRACE(row.name);
        PMTicket ticket;
        ticket.setItem(PanelClient, "com.tarvo.print.BookletLayout", row.isBooklet);
        ticket.setItem(ImportClient, FrontKey, CoverOfSides(4)->asTicket());
        ticket.setItem(ImportClient, BackKey, CoverOfSides(4)->asTicket());
        EXPECT_EQ(WriteCovers(ticket, CoverOfSides(row.front), CoverOfSides(row.back)), StatusOk);
        EXPECT_EQ(SidesInTicket(ticket, FrontKey), row.frontWritten);
        EXPECT_EQ(SidesInTicket(ticket, BackKey), row.backWritten);
        auto front = CoverOfSides(1);
        auto back = CoverOfSides(1);
        ReadCovers(ticket, front, back);
        EXPECT_EQ(SidesOf(front), row.front);
        EXPECT_EQ(SidesOf(back), row.backRead);
    }
}

TEST(TicketSpecialPages, AreMergedAgainWhenRead)
{
    const CFDictionary lists = TicketFromText(R"(
        Inserts: [{StartPage: 7, Stock: {}, Quantity: 1}, "no insert", {StartPage: 0, Stock: {}, Quantity: 1}],
        Exceptions: [{StartPage: 5, EndPage: 20, SidesImaged: 1}, {StartPage: 1, EndPage: 10, SidesImaged: 2},
                     [], {StartPage: 30, EndPage: 29, SidesImaged: 3}])");
    const CFDictionary merged = TicketFromText(R"(
        Inserts: [{StartPage: 0, Stock: {}, Quantity: 1}, {StartPage: 7, Stock: {}, Quantity: 1}],
        Exceptions: [{StartPage: 1, EndPage: 10, Stock: {}, SidesImaged: 2},
                     {StartPage: 11, EndPage: 20, Stock: {}, SidesImaged: 1}])");
    PMTicket ticket;
    ticket.setItem(ImportClient, InsertsKey, *lists.find("Inserts"));
    ticket.setItem(ImportClient, ExceptionsKey, *lists.find("Exceptions"));
    const TicketSpecialPages pages = ReadSpecialPages(ticket);
    EXPECT_FALSE(pages.frontCover.has_value());
    PMTicket written;
    EXPECT_EQ(WriteSpecialPages(written, pages), StatusOk);
    EXPECT_EQ(written.count(), 2U);
    EXPECT_EQ(written.item(InsertsKey)->value, *merged.find("Inserts"));
    EXPECT_EQ(written.item(InsertsKey)->client, "com.tarvo.print");
    EXPECT_EQ(written.item(ExceptionsKey)->value, *merged.find("Exceptions"));
}

TEST(TicketSpecialPages, LeaveNothingWhenThereAreNone)
{
    PMTicket ticket;
    for (const auto key : {FrontKey, BackKey, InsertsKey, ExceptionsKey}) {
        ticket.setItem(ImportClient, key, true); // of a type that says nothing
    }
    EXPECT_EQ(WriteSpecialPages(ticket, ReadSpecialPages(ticket)), StatusOk);
    EXPECT_EQ(ticket.count(), 0U);
    ticket.setItem(ImportClient, InsertsKey, CFArray{}, true);
    ticket.setItem(ImportClient, BackKey, CFDictionary());
    EXPECT_EQ(WriteSpecialPages(ticket, TicketSpecialPages()), StatusItemLocked);
    EXPECT_FALSE(ticket.containsItem(BackKey)); // what can be done is done
}

} // namespace
} // namespace tarvo
