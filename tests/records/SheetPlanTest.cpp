#include "records/SheetPlan.h"

#include "records/TicketSpecialPages.h"
#include "settings/JobMaps.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace tarvo {
namespace {

enum Color : std::int32_t { White = 1, Blue = 2, Yellow = 3 };

Stock Colored(std::int32_t color)
{
    Stock stock;
    stock.setColor(color);
    return stock;
}

void AddTo(SpecialPageList& list, const SpecialPage& page)
{
    const SpecialPage* const pages[] = {&page};
    ASSERT_EQ(list.add(pages), StatusOk);
}

void AddInsert(TicketSpecialPages& special, std::int32_t after, std::int32_t quantity)
{
    Insert insert;
    insert.setStartPage(after);
    insert.setQuantity(quantity);
    insert.stock() = Colored(Blue);
    AddTo(special.inserts, insert);
}

void AddException(TicketSpecialPages& special, std::int32_t first, std::int32_t last,
                  std::int32_t plex, std::int32_t color)
{
    ExceptionPage page;
    page.setStartPage(first);
    page.setEndPage(last);
    page.setPlex(plex);
    page.stock() = Colored(color);
    AddTo(special.exceptions, page);
}

Cover CoverWith(std::int32_t sides)
{
    Cover cover;
    cover.setSidesImaged(sides);
    return cover;
}

PlannedJob Job(std::int32_t pages, std::int32_t sides)
{
    PlannedJob job;
    job.pages = pages;
    job.sides = sides;
    job.stock = Colored(White);
    return job;
}

std::string LetterOf(SheetKind kind)
{
    return {"FPIBR"[static_cast<std::size_t>(kind)]};
}

std::string Span(std::int64_t first, std::int64_t last)
{
    return std::to_string(first) + '-' + std::to_string(last);
}

// "1-1 F2 w", "2-7 P1-12 w", "8-9 I12 b": sheets, kind with pages or sides, colour.
std::string TextOf(const PlannedSheets& sheets)
{
    const std::string what =
        sheets.kind == SheetKind::Pages
            ? Span(sheets.firstPage, sheets.lastPage)
            : std::to_string(sheets.kind == SheetKind::Inserts ? sheets.firstPage : sheets.sides);
    const auto color = sheets.stock.color();
    return Span(sheets.firstSheet, sheets.lastSheet) + ' ' + LetterOf(sheets.kind) + what + ' ' +
           "?wby"[color >= White && color <= Yellow ? color : 0];
}

std::string TextOf(const SheetPlan& plan)
{
    std::string text;
    for (const auto& sheets : plan.sheets) {
        text += TextOf(sheets) + "; ";
    }
    for (const auto& pages : plan.unplanned) {
        text += '!' + LetterOf(pages.kind) + Span(pages.firstPage, pages.lastPage) + "; ";
    }
    return text;
}

TEST(SheetPlan, PutsCoversInsertsAndPagesInTheirOrder)
{
    TicketSpecialPages special;
    special.frontCover = CoverWith(2);
    special.backCover = CoverWith(1);
    AddInsert(special, 12, 2);
    EXPECT_EQ(TextOf(PlanSheets(Job(12, TwoSidedLongEdge), special)),
              "1-1 F2 w; 2-7 P1-12 w; 8-9 I12 b; 10-10 B1 w; ");
}

TEST(SheetPlan, NamesWhatLiesOutsideThePages)
{
    TicketSpecialPages special;
    AddInsert(special, 4, 1);
    AddInsert(special, 9, 1);
    AddException(special, -2, 0, UnsetValue, Yellow);
    AddException(special, 3, 8, UnsetValue, Yellow);
    AddException(special, 9, 10, UnsetValue, Yellow);
    AddInsert(special, 1, 0);
    special.backCover = CoverWith(9);
    EXPECT_EQ(
        TextOf(PlanSheets(Job(5, OneSided), special)),
        "1-2 P1-2 w; 3-4 P3-4 y; 5-5 I4 b; 6-6 P5-5 y; !I1-1; !B0-0; !I9-9; !P-2-0; !P9-10; ");
}

TEST(SheetPlan, PutsABookletRoundAndIntoOneCover)
{
    TicketSpecialPages special;
    special.frontCover = CoverWith(4);
    special.backCover = CoverWith(4);
    AddInsert(special, 2, 1);
    AddException(special, 1, 2, UnsetValue, Yellow);
    auto job = Job(13, TwoSidedShortEdge);
    job.isBooklet = true;
    EXPECT_EQ(TextOf(PlanSheets(job, special)), "1-1 R4 w; 2-5 P1-13 w; !I2-2; !P1-2; ");
    special.backCover = CoverWith(2);
    EXPECT_EQ(TextOf(PlanSheets(job, special)), "1-1 R4 w; 2-5 P1-13 w; !B0-0; !I2-2; !P1-2; ");
}

TEST(SheetPlan, TakesWhatAPageLeavesOpenFromTheJob)
{
    TicketSpecialPages special;
    special.frontCover = CoverWith(1);
    special.frontCover->stock().setWeight(200);
    auto job = Job(1, OneSided);
    job.stock.setSize(4);
    job.stock.setWeight(80);
    job.stock.setType(7);
    job.stock.setCustomType("Vellum");
    const Stock cover = PlanSheets(job, special).sheets.front().stock;
    EXPECT_EQ(cover.weight(), 200);
    EXPECT_EQ(cover.size(), 4);
    EXPECT_EQ(cover.color(), White);
    EXPECT_EQ(cover.customType(), "Vellum");
}

TEST(SheetPlan, PrintsAPageWithoutAStockOnTheJobsOwn)
{
    TicketSpecialPages special;
    special.frontCover = CoverWith(1);
    auto job = Job(1, OneSided);
    job.stock.setCustomName("Creme 120");
    job.stock.setCustomNameOnly(true);
    job.stock.setDescription("shelf 7");
    EXPECT_EQ(PlanSheets(job, special).sheets.front().stock, job.stock);
    // The name tells no colour or weight that a page of its own could share.
    special.frontCover->stock() = Colored(Blue);
    EXPECT_EQ(PlanSheets(job, special).sheets.front().stock, Colored(Blue));
}

TEST(SheetPlan, HasClearTransparenciesOnly)
{
    TicketSpecialPages special;
    AddException(special, 1, 1, UnsetValue, Yellow);
    auto job = Job(2, OneSided);
    job.stock.setType(TransparencyStockType);
    const SheetPlan plan = PlanSheets(job, special);
    EXPECT_EQ(plan.sheetCount, 2);
    EXPECT_EQ(plan.sheets.front().stock.color(), ClearStockColor);
}

// The rule page by page.
std::string PlainPlan(std::int32_t pages, std::int32_t jobSides, const TicketSpecialPages& special)
{
    std::string text;
    std::int32_t open = 0; // free sides of the last sheet
    std::int32_t lastColor = 0;
    std::int32_t lastSides = 0;
    std::int64_t sheet = 0;
    const auto addInserts = [&](std::int32_t after) {
        for (std::int32_t index = 0; index < special.inserts.count(); ++index) {
            const Insert& insert = *special.inserts.pageAtIndex(index);
            for (std::int32_t one = 0; insert.startPage() == after && one < insert.quantity();
                 ++one) {
                text += std::to_string(++sheet) + 'I';
                open = 0;
            }
        }
    };
    addInserts(0);
    for (std::int32_t page = 1; page <= pages; ++page) {
        std::int32_t color = White;
        std::int32_t sides = jobSides;
        for (std::int32_t index = 0; index < special.exceptions.count(); ++index) {
            const ExceptionPage& exception = *special.exceptions.pageAtIndex(index);
            if (exception.startPage() <= page && page <= exception.endPage()) {
                color = exception.stock().color();
                sides = exception.plex() == UnsetValue ? jobSides : exception.plex();
            }
        }
        if (open == 0 || color != lastColor || sides != lastSides) {
            text += std::to_string(++sheet) + 'S' + std::to_string(color);
            open = sides == OneSided ? 1 : 2;
        }
        --open;
        lastColor = color;
        lastSides = sides;
        text += 'p' + std::to_string(page);
        addInserts(page);
    }
    return text;
}

// The plan written out as the plain one is.
std::string Unfolded(const SheetPlan& plan)
{
    std::string text;
    for (const auto& sheets : plan.sheets) {
        std::int32_t page = sheets.firstPage;
        const std::int32_t perSheet = sheets.sides == OneSided ? 1 : 2;
        for (auto sheet = sheets.firstSheet; sheet <= sheets.lastSheet; ++sheet) {
            text += std::to_string(sheet);
            if (sheets.kind == SheetKind::Inserts) {
                text += 'I';
                continue;
            }
            text += 'S' + std::to_string(sheets.stock.color());
            for (std::int32_t side = 0; side < perSheet && page <= sheets.lastPage; ++side) {
                text += 'p' + std::to_string(page++);
            }
        }
    }
    return text;
}

TEST(SheetPlan, IsThatOfOnePageAfterTheOther)
{
    std::mt19937 random(20261121);
    const auto number = [&random](std::int32_t low, std::int32_t high) {
        return std::uniform_int_distribution(low, high)(random);
    };
    for (int round = 0; round < 5000; ++round) {
        TicketSpecialPages special;
        for (std::int32_t count = number(0, 4); count > 0; --count) {
            const std::int32_t first = number(1, 20);
            AddException(special, first, first + number(0, 6),
                         number(0, 1) == 0 ? UnsetValue : number(1, 3), number(White, Yellow));
        }
        for (std::int32_t count = number(0, 3); count > 0; --count) {
            AddInsert(special, number(0, 20), number(1, 2));
        }
        const std::int32_t pages = number(1, 20);
        const std::int32_t sides = number(1, 3);
        ASSERT_EQ(Unfolded(PlanSheets(Job(pages, sides), special)),
                  PlainPlan(pages, sides, special))
            << round;
    }
}

} // namespace
} // namespace tarvo
