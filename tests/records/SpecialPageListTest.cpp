#include "records/ExceptionPageList.h"
#include "records/InsertList.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <random>

namespace tarvo {
namespace {

constexpr auto Largest = std::numeric_limits<std::int32_t>::max();
constexpr auto Smallest = std::numeric_limits<std::int32_t>::min();

// An exception page; the mark, kept as its stock's weight, tells which page a part comes from.
struct Marked {
    std::int32_t first;
    std::int32_t last;
    std::int32_t mark;
    bool operator==(const Marked&) const = default;
};
using MarkedPages = std::vector<Marked>;

void PrintTo(const Marked& page, std::ostream* out)
{
    *out << page.first << '-' << page.last << " (" << page.mark << ")";
}

ExceptionPage PageOf(const Marked& marked)
{
    ExceptionPage page;
    page.setStartPage(marked.first);
    page.setEndPage(marked.last);
    page.stock().setWeight(marked.mark);
    return page;
}

template <typename Page>
std::vector<const SpecialPage*> Borrowed(const std::vector<Page>& pages)
{
    std::vector<const SpecialPage*> borrowed;
    for (const Page& page : pages) {
        borrowed.push_back(&page);
    }
    return borrowed;
}

OSStatus Add(ExceptionPageList& list, const MarkedPages& marked)
{
    std::vector<ExceptionPage> pages;
    for (const Marked& each : marked) {
        pages.push_back(PageOf(each));
    }
    return list.add(Borrowed(pages));
}

MarkedPages PagesOf(const ExceptionPageList& list)
{
    MarkedPages pages;
    for (std::int32_t index = 0; index < list.count(); ++index) {
        const ExceptionPage& page = *list.pageAtIndex(index);
        pages.push_back({page.startPage(), page.endPage(), page.stock().weight()});
    }
    return pages;
}

// What the model below has no numbers for.
TEST(ExceptionPageLists, MergeAllNumbersThereAre)
{
    ExceptionPageList list;
    Add(list, {
                  Marked{Smallest, Largest, 1}
    });
    Add(list, {
                  Marked{Smallest, 0,       2},
                  Marked{Largest,  Largest, 3}
    });
    EXPECT_EQ(PagesOf(list),
              (MarkedPages{
                  Marked{Smallest, 0,           2},
                  Marked{1,        Largest - 1, 1},
                  Marked{Largest,  Largest,     3}
    }));
}

TEST(ExceptionPageLists, SplitAPageIntoTwoWithItsAttributes)
{
    ExceptionPage page = PageOf({1, 10, 7});
    page.setPlex(2);
    page.imageShift().twoSidedMode = 4;
    page.setOutputColor(3);
    ExceptionPageList list;
    list.add(std::array<const SpecialPage*, 1>{&page});
    Add(list, {
                  Marked{5, 6, 8}
    });
    for (const auto& [index, first, last] : {
             std::array{0, 1, 4 },
             std::array{2, 7, 10}
    }) {
        page.setStartPage(first);
        page.setEndPage(last);
        EXPECT_EQ(list.pageAtIndex(index)->asTicket(), page.asTicket());
    }
}

// Which mark each page number has; 0 for a page that is no exception.
using PageByPage = std::array<std::int32_t, 60>;

void Mark(PageByPage& pages, const Marked& range, std::int32_t mark)
{
    for (std::int32_t number = range.first; number <= range.last; ++number) {
        pages[static_cast<std::size_t>(number)] = mark;
    }
}

// The ranges as single pages; they must be apart, in order, and none in two parts.
PageByPage SinglePagesOf(const MarkedPages& ranges)
{
    PageByPage pages = {};
    Marked before = {-1, -1, 0};
    for (const Marked& range : ranges) {
        EXPECT_TRUE(range.first > before.last && range.first <= range.last);
        EXPECT_FALSE(range.mark == before.mark && range.first == before.last + 1);
        Mark(pages, range, range.mark);
        before = range;
    }
    return pages;
}

// Few short ranges to begin with, long ones now and then, some of them backwards.
Marked AnyRange(std::mt19937& random, std::int32_t mark)
{
    const auto below = [&random](std::int32_t limit) {
        return static_cast<std::int32_t>(random() % static_cast<std::uint32_t>(limit));
    };
    constexpr std::int32_t Count = PageByPage().size();
    const std::int32_t first = below(Count);
    const std::int32_t length = below(below(4) == 0 ? Count : 6);
    return {first, std::min(first + length - 1, Count - 1), mark};
}

TEST(ExceptionPageLists, AgreeWithAModelPageByPage)
{
    std::mt19937 random(1'500);
    for (int round = 0; round < 1'000; ++round) {
        ExceptionPageList list;
        PageByPage model = {};
        std::int32_t mark = 0;
        for (int step = 0; step < 12; ++step) {
            SCOPED_TRACE(testing::Message() << "round " << round << ", step " << step);
            MarkedPages added(random() % 5);
            for (Marked& page : added) {
                page = AnyRange(random, ++mark);
            }
            const auto chosen = static_cast<std::int32_t>(random() % 20);
            const ExceptionPage* page = list.pageAtIndex(chosen); // often none
            if (page != nullptr) {
                Mark(model, PagesOf(list)[static_cast<std::size_t>(chosen)], 0);
            }
            if (page != nullptr && !added.empty()) {
                const ExceptionPage edited = PageOf(added.front());
                EXPECT_EQ(list.update(*page, std::array<const SpecialPage*, 1>{&edited}), StatusOk);
            } else {
                list.remove(page);
            }
            Add(list, added);
            for (const Marked& each : added) {
                Mark(model, each, each.mark);
            }
            ASSERT_EQ(SinglePagesOf(PagesOf(list)), model);
        }
    }
}

TEST(ExceptionPageLists, TakeManyRangesInAnyOrder)
{
    constexpr std::int32_t Count = 20'000;
    MarkedPages backwards;
    for (std::int32_t number = Count; number > 0; --number) {
        backwards.push_back({10 * number, 10 * number + 4, number});
    }
    ExceptionPageList list;
    Add(list, backwards);
    for (std::int32_t number = 0; number < 1'000; ++number) {
        Add(list, {
                      Marked{10 * number + 2, 10 * number + 3, -1}
        });
    }
    EXPECT_EQ(list.count(), Count + 1 + 999 * 2);
    Add(list, {
                  Marked{1, Largest, 1}
    });
    EXPECT_EQ(list.count(), 1);
}

Insert InsertAfter(std::int32_t page, std::int32_t quantity)
{
    Insert insert;
    insert.setStartPage(page);
    insert.setQuantity(quantity);
    return insert;
}

// "after page:quantity" of each.
std::string InsertsOf(const InsertList& list)
{
    std::string inserts;
    for (std::int32_t index = 0; index < list.count(); ++index) {
        const Insert& insert = *list.pageAtIndex(index);
        inserts +=
            std::to_string(insert.startPage()) + ":" + std::to_string(insert.quantity()) + " ";
    }
    return inserts;
}

TEST(InsertLists, KeepTheOrderInWhichInsertsOfAPageCame)
{
    InsertList list;
    EXPECT_EQ(list.add({}), StatusOk);
    list.add(Borrowed<Insert>({InsertAfter(3, 1), InsertAfter(9, 2), InsertAfter(3, 3)}));
    list.add(Borrowed<Insert>({InsertAfter(3, 4), InsertAfter(0, 5), InsertAfter(12, 6)}));
    EXPECT_EQ(InsertsOf(list), "0:5 3:1 3:3 3:4 9:2 12:6 ");

    const Insert moved = InsertAfter(9, 7);
    const std::array<const SpecialPage*, 1> edited = {&moved};
    EXPECT_EQ(list.update(*list.pageAtIndex(1), edited), StatusOk);
    EXPECT_EQ(list.update(moved, edited), StatusOk); // equal to one in the list, but not that one
    list.remove(&moved);
    list.remove(list.pageAtIndex(0));
    EXPECT_EQ(InsertsOf(list), "3:3 3:4 9:2 9:7 12:6 ");
}

TEST(SpecialPageLists, RefusePagesOfAnotherKindAndStayAsTheyWere)
{
    const Insert insert = InsertAfter(3, 1);
    const ExceptionPage page = PageOf({1, 9, 1});
    InsertList inserts;
    ExceptionPageList pages;
    inserts.add(std::array<const SpecialPage*, 1>{&insert});
    pages.add(std::array<const SpecialPage*, 1>{&page});
    const auto before = pages.asTicket();
    EXPECT_EQ(inserts.add(std::array<const SpecialPage*, 2>{&insert, &page}), StatusBadArgument);
    const std::array<const SpecialPage*, 2> withNull = {&page, nullptr};
    EXPECT_EQ(pages.add(withNull), StatusBadArgument);
    EXPECT_EQ(pages.update(*pages.pageAtIndex(0), withNull), StatusBadArgument);
    EXPECT_EQ(inserts.count(), 1);
    EXPECT_EQ(pages.asTicket(), before);
}

TEST(SpecialPageLists, OwnTheirPages)
{
    ExceptionPageList list;
    EXPECT_FALSE(list.asTicket().has_value());
    Add(list, {
                  Marked{5, 6, 1},
                  Marked{1, 2, 2}
    });
    EXPECT_EQ(list.pageAtIndex(-1), nullptr);
    EXPECT_EQ(list.pageAtIndex(2), nullptr);
    const CFArray ticket = {PageOf({1, 2, 2}).asTicket(), PageOf({5, 6, 1}).asTicket()};
    EXPECT_EQ(list.asTicket(), ticket);
    ExceptionPageList assigned;
    assigned = list;
    list.clear();
    EXPECT_EQ(ExceptionPageList(assigned).asTicket(), ticket);
}

} // namespace
} // namespace tarvo
