#include "stocklibrary/RecentPapers.h"

#include "prefs/FailingCall.h"
#include "prefs/PreferenceFolderFixture.h"
#include "records/TicketSpecialPages.h"
#include "stocklibrary/StockLibraryList.h"
#include "stocklibrary/StockLibraryOrderList.h"
#include "stocklibrary/StockLibraryTestSupport.h"

#include <gmock/gmock.h>

#include <array>

namespace tarvo {
namespace {

using ::testing::ElementsAre;

class RecentPapersTest : public PreferenceFolderFixture {
protected:
    RecentPapersTest()
    {
        StockLibraryList list(folders_);
        list.add(own_);
        list.add(nameless_);
        printers_.add(printersOwn_);
    }
    std::vector<std::string> names() const
    {
        std::vector<std::string> names;
        for (const NamedPaper& paper : RecentPapers(folders_, &printers_)) {
            names.push_back(paper.name);
        }
        return names;
    }
    void remember(const std::vector<std::string>& uuids) const
    {
        StockLibraryOrderList order(folders_);
        std::for_each(uuids.rbegin(), uuids.rend(),
                      [&order](const std::string& uuid) { order.updateOrderList(uuid); });
    }

    StockLibrary own_ = Paper("Own", 2);
    StockLibrary nameless_ = Paper("");
    StockLibrary printersOwn_ = Paper("Printer's", 3);
    StockLibraryList printers_;
};

TEST_F(RecentPapersTest, AreThoseThatALibraryHas)
{
    EXPECT_THAT(names(), ElementsAre());
    remember({"gone", printersOwn_.uuid(), nameless_.uuid(), own_.uuid()});
    EXPECT_THAT(names(), ElementsAre("Printer's", "Own"));
    EXPECT_EQ(RecentPapers(folders_, nullptr).size(), 1U);
    EXPECT_EQ(RecentPapers(folders_, nullptr)[0].uuid, own_.uuid());
}

TEST_F(RecentPapersTest, AreNoMoreThanTheMenuTakes)
{
    CFDictionary root;
    root.set("com.tarvo.print.StockLibrary.StockMenuList", CFArray(100000, printersOwn_.uuid()));
    ASSERT_TRUE(WriteUserPreferences(folders_, "com.tarvo.print.stocklibrary", root));
    EXPECT_EQ(names().size(), 25U);
}

TEST_F(RecentPapersTest, ComeToTheFrontWhenTheyAreUsed)
{
    remember({own_.uuid()});
    RememberRecentPaper(folders_, printersOwn_.uuid());
    EXPECT_THAT(names(), ElementsAre("Printer's", "Own"));
    EXPECT_EQ(StockLibraryList(folders_).stockList().size(), 2U) << "it stays the printer's";
    RememberRecentPaper(folders_, own_.uuid());
    EXPECT_EQ(StockLibraryList(folders_).entry(own_.uuid())->status(), 1);
    EXPECT_THAT(names(), ElementsAre("Own", "Printer's"));
    std::vector<Stock> stocks;
    RecentPapers(folders_, &printers_, &stocks);
    ASSERT_EQ(stocks.size(), 2U);
    EXPECT_EQ(stocks[0].color(), 2);
    EXPECT_EQ(stocks[1].color(), 3);
    ForgetRecentPapers(folders_);
    EXPECT_THAT(names(), ElementsAre());
    EXPECT_EQ(StockLibraryList(folders_).stockList().size(), 2U);
}

TEST_F(RecentPapersTest, StayAsTheyWereWhenNothingCanBeSaved)
{
    remember({own_.uuid()});
    testing::internal::CaptureStderr();
    {
        const FailingCall call("write", ENOSPC);
        RememberRecentPaper(folders_, printersOwn_.uuid());
        ForgetRecentPapers(folders_);
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "WriteUserPreferences() failed (28)\nWriteUserPreferences() failed (28)\n");
    EXPECT_THAT(names(), ElementsAre("Own"));
}

TEST_F(RecentPapersTest, AreInUseByTheJobThatNamesThem)
{
    StockLibraryList list;
    std::vector<StockLibrary> papers = {Paper("job"),    Paper("front"), Paper("back"),
                                        Paper("insert"), Paper("page"),  Paper("other"),
                                        Paper("")};
    for (StockLibrary& paper : papers) {
        list.add(paper);
    }
    list.setInUse(papers[5].uuid());
    TicketSpecialPages pages;
    pages.frontCover.emplace().stock() = papers[1].stock();
    pages.backCover.emplace().stock() = papers[2].stock();
    Insert insert;
    insert.stock() = papers[3].stock();
    pages.inserts.add(std::array<const SpecialPage*, 2>{&insert, &insert});
    for (const std::size_t page : {4U, 6U}) {
        ExceptionPage exception;
        exception.setStartPage(static_cast<std::int32_t>(page));
        exception.setEndPage(exception.startPage());
        exception.stock() = papers[page].stock();
        pages.exceptions.add(std::array<const SpecialPage*, 1>{&exception});
    }
    MarkStocksInUse(list, papers[0].stock(), pages);
    std::vector<std::int32_t> statuses;
    for (const StockLibrary& paper : papers) {
        statuses.push_back(list.entry(paper.uuid())->status());
    }
    EXPECT_THAT(statuses, ElementsAre(1, 1, 1, 1, 1, 0, 0));
}

} // namespace
} // namespace tarvo
