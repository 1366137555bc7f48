#include "records/SpecialPages.h"

#include <gtest/gtest.h>

#include <random>

namespace tarvo {
namespace {

CFDictionary StockTicket(std::int32_t color)
{
    CFDictionary stock;
    stock.set("Color", color);
    return stock;
}

CFDictionary PageTicket(std::int32_t startPage, std::int32_t color)
{
    CFDictionary ticket;
    ticket.set("StartPage", startPage);
    ticket.set("Stock", StockTicket(color));
    return ticket;
}

TEST(SpecialPages, HaveTheDriversKeysAndComeBack)
{
    Cover cover;
    cover.setStartPage(4);
    cover.stock().setColor(2);
    cover.setSidesImaged(3);
    CFDictionary ticket = PageTicket(4, 2);
    ticket.set("SidesImaged", 3);
    EXPECT_EQ(cover.asTicket(), ticket);
    EXPECT_EQ(Cover(ticket).asTicket(), ticket);

    Insert insert;
    insert.setStartPage(5);
    insert.stock().setColor(7);
    insert.setQuantity(20);
    ticket = PageTicket(5, 7);
    ticket.set("Quantity", 20);
    EXPECT_EQ(insert.asTicket(), ticket);
    EXPECT_EQ(Insert(ticket).asTicket(), ticket);

    ExceptionPage page;
    page.setStartPage(6);
    page.stock().setColor(1);
    page.setEndPage(9);
    page.setPlex(2);
    page.setLightenDarken(-5);
    page.imageShift() = {.twoSidedMode = 3, .isInches = false, .x1 = 7};
    ticket = PageTicket(6, 1);
    ticket.set("EndPage", 9);
    ticket.set("SidesImaged", 2);
    ticket.set("LightenDarken", -5);
    ticket.set("com.tarvo.print.ImageShiftOptionsPage",
               ImageShiftCreateTicketFromOptions(page.imageShift()));
    EXPECT_EQ(page.asTicket(), ticket);
    EXPECT_EQ(ExceptionPage(ticket).asTicket(), ticket);
    EXPECT_EQ(ExceptionPage(ticket).clone()->asTicket(), ticket);
}

TEST(SpecialPages, KeepTheirDefaultsWithoutATicket)
{
    CFDictionary ticket;
    ticket.set("StartPage", 0);
    ticket.set("Stock", CFDictionary());
    CFDictionary cover = ticket;
    cover.set("SidesImaged", 1);
    CFDictionary insert = ticket;
    insert.set("Quantity", 1);
    CFDictionary exception = ticket;
    exception.set("EndPage", 0);

    CFDictionary wrong; // each entry of a type that is not its own
    for (const char* key : {"StartPage", "Stock", "EndPage", "Quantity", "SidesImaged",
                            "LightenDarken", "com.tarvo.print.ImageShiftOptionsPage"}) {
        wrong.set(key, true);
    }
    for (const auto& source : {CFDictionary(), wrong}) {
        EXPECT_EQ(Cover(source).asTicket(), cover);
        EXPECT_EQ(Insert(source).asTicket(), insert);
        EXPECT_EQ(ExceptionPage(source).asTicket(), exception);
    }
    ExceptionPage page; // valid, but without a mode there is no shift
    page.imageShift() = {.isValid = false, .twoSidedMode = 3};
    EXPECT_EQ(page.asTicket(), exception);
}

TEST(SpecialPages, KeepColourEntriesThatNoDialogEdits)
{
    CFDictionary ticket = PageTicket(1, 1);
    ticket.set("EndPage", 2);
    ticket.set("FullColorOptionsPage", StockTicket(9)); // any dictionary
    ticket.set("Antialiasing", 2);
    ticket.set("HalftoneScreen", "of another type");
    ticket.set("OutputColor", 3);
    ExceptionPage page(ticket);
    EXPECT_EQ(page.clone()->asTicket(), ticket);
    EXPECT_EQ(page.outputColor(), 3);
    page.setOutputColor(UnsetValue);
    ticket.remove("OutputColor");
    EXPECT_EQ(page.asTicket(), ticket);
    page.setOutputColor(1);
    ticket.set("OutputColor", 1);
    EXPECT_EQ(page.asTicket(), ticket);
}

// A blue transparency comes from a ticket only; assigning its stock alone would make it clear.
TEST(SpecialPages, CopyTheirStockAsItStands)
{
    CFDictionary ticket = PageTicket(1, 3);
    CFDictionary stock = StockTicket(3);
    stock.set("Type", 2);
    ticket.set("Stock", stock);
    const Cover cover(ticket);
    ASSERT_EQ(cover.stock().color(), 3);
    Cover assigned;
    assigned = cover;
    EXPECT_EQ(assigned.stock().color(), 3);
    EXPECT_EQ(dynamic_cast<const Cover&>(*cover.clone()).stock().color(), 3);
}

TEST(Covers, AreEqualByTheirSidesAndStock)
{
    CFDictionary ticket = PageTicket(1, 3);
    const Cover cover(ticket);
    ticket.set("StartPage", 2);
    EXPECT_EQ(Cover(ticket), cover);
    ticket.set("SidesImaged", 2);
    EXPECT_FALSE(Cover(ticket) == cover);
    EXPECT_FALSE(Cover(PageTicket(1, 4)) == cover);
}

// Inches in steps of 5/100 are whole hundredths of a millimetre, so they are not rounded.
CFDictionary AnyTicket(std::mt19937& random)
{
    static constexpr const char* Numbers[] = {"StartPage",     "EndPage",      "SidesImaged",
                                              "LightenDarken", "Antialiasing", "OutputColor"};
    static constexpr const char* StockNumbers[] = {"Size",   "Width",   "Length",     "Type",
                                                   "Color",  "Modulus", "Weight",     "Punched",
                                                   "Finish", "kGrain",  "SidesCoated"};
    static constexpr std::int32_t Sizes[] = {UnsetValue, -1, 0, 1, 2, 3, 4, 6, 10, 24, 75, 99999};
    CFDictionary ticket;
    CFDictionary stock;
    CFDictionary shift;
    const auto number = [&random] { return Sizes[random() % std::size(Sizes)]; };
    const auto addSome = [&](CFDictionary& dictionary, auto& keys) {
        for (const char* key : keys) {
            if (random() % 3 != 0) {
                dictionary.set(key, number());
            }
        }
    };
    addSome(ticket, Numbers);
    addSome(stock, StockNumbers);
    shift.set("Option", static_cast<std::int32_t>(random() % 10));
    shift.set("Inches", static_cast<std::int32_t>(random() % 2));
    shift.set("X1", (static_cast<std::int32_t>(random() % 2'000) - 1'000) * 5);
    stock.set("CustomName", random() % 2 == 0 ? "" : "Shelf 3");
    ticket.set("Stock", std::move(stock));
    ticket.set("com.tarvo.print.ImageShiftOptionsPage", std::move(shift));
    return ticket;
}

TEST(SpecialPages, ComeBackFromWhatTheyWrite)
{
    std::mt19937 random(32);
    for (int round = 0; round < 2'000; ++round) {
        const CFDictionary ticket = AnyTicket(random);
        const CFDictionary page = ExceptionPage(ticket).asTicket();
        ASSERT_EQ(page.int32("StartPage"), ticket.int32("StartPage").value_or(0));
        ASSERT_EQ(ExceptionPage(page).asTicket(), page);
        const CFDictionary cover = Cover(ticket).asTicket();
        ASSERT_EQ(Cover(cover).asTicket(), cover);
    }
}

} // namespace
} // namespace tarvo
