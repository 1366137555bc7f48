#include "records/SpecialPages.h"

#include "support/TicketText.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

TEST(SpecialPages, HaveTheDriversKeysAndComeBack)
{
    Cover cover;
    cover.setStartPage(4);
    cover.stock().setColor(2);
    cover.setSidesImaged(3);
    CFDictionary ticket = TicketFromText("StartPage: 4, Stock: {Color: 2}, SidesImaged: 3");
    EXPECT_EQ(cover.asTicket(), ticket);
    EXPECT_EQ(Cover(ticket).asTicket(), ticket);

    Insert insert;
    insert.setStartPage(5);
    insert.setQuantity(20);
    ticket = TicketFromText("StartPage: 5, Stock: {}, Quantity: 20");
    EXPECT_EQ(insert.asTicket(), ticket);
    EXPECT_EQ(Insert(ticket).asTicket(), ticket);

    ExceptionPage page;
    page.setEndPage(9);
    page.setPlex(2);
    page.setLightenDarken(-5);
    page.imageShift() = {.twoSidedMode = 3, .isInches = false, .x1 = 7};
    ticket =
        TicketFromText("StartPage: 0, Stock: {}, EndPage: 9, SidesImaged: 2, LightenDarken: -5");
    ticket.set("com.tarvo.print.ImageShiftOptionsPage",
               ImageShiftCreateTicketFromOptions(page.imageShift()));
    EXPECT_EQ(page.asTicket(), ticket);
    EXPECT_EQ(ExceptionPage(ticket).asTicket(), ticket);
    EXPECT_EQ(ExceptionPage(ticket).clone()->asTicket(), ticket);
}

TEST(SpecialPages, KeepTheirDefaultsWithoutATicket)
{
    const CFDictionary wrong = // each entry of a type that is not its own
        TicketFromText("StartPage: true, Stock: true, EndPage: true, Quantity: true, "
                       "SidesImaged: true, LightenDarken: true, .ImageShiftOptionsPage: true");
    const CFDictionary exception = TicketFromText("StartPage: 0, Stock: {}, EndPage: 0");
    for (const auto& source : {CFDictionary(), wrong}) {
        EXPECT_EQ(Cover(source).asTicket(),
                  TicketFromText("StartPage: 0, Stock: {}, SidesImaged: 1"));
        EXPECT_EQ(Insert(source).asTicket(),
                  TicketFromText("StartPage: 0, Stock: {}, Quantity: 1"));
        EXPECT_EQ(ExceptionPage(source).asTicket(), exception);
    }
    ExceptionPage page; // valid, but without a mode there is no shift
    page.imageShift() = {.isValid = false, .twoSidedMode = 3};
    EXPECT_EQ(page.asTicket(), exception);
}

TEST(SpecialPages, KeepColourEntriesThatNoDialogEdits)
{
    CFDictionary ticket = TicketFromText(
        R"(StartPage: 1, Stock: {}, EndPage: 2, FullColorOptionsPage: {Any: 1}, Antialiasing: 2,
           HalftoneScreen: "of another type", OutputColor: 3)");
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
    const Cover cover(TicketFromText("Stock: {Color: 3, Type: 2}"));
    ASSERT_EQ(cover.stock().color(), 3);
    Cover assigned;
    assigned = cover;
    EXPECT_EQ(assigned.stock().color(), 3);
    EXPECT_EQ(dynamic_cast<const Cover&>(*cover.clone()).stock().color(), 3);
}

TEST(Covers, AreEqualByTheirSidesAndStock)
{
    const Cover cover(TicketFromText("StartPage: 1, Stock: {Color: 3}"));
    EXPECT_EQ(Cover(TicketFromText("StartPage: 2, Stock: {Color: 3}")), cover);
    EXPECT_FALSE(Cover(TicketFromText("SidesImaged: 2, Stock: {Color: 3}")) == cover);
    EXPECT_FALSE(Cover(TicketFromText("Stock: {Color: 4}")) == cover);
}

} // namespace
} // namespace tarvo
