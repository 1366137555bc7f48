#include "stocklibrary/UserPapers.h"

#include "platform/files/FileLock.h"
#include "prefs/FailingCall.h"
#include "prefs/PreferenceFolderFixture.h"
#include "prefs/PreferenceTasks.h"
#include "records/TicketSpecialPages.h"
#include "stocklibrary/RecentPapers.h"
#include "stocklibrary/StockLibraryList.h"
#include "stocklibrary/StockLibraryTestSupport.h"

#include <gmock/gmock.h>

#include <chrono>
#include <filesystem>

namespace tarvo {
namespace {

using testing::ElementsAre;

class UserPapersTest : public PreferenceFolderFixture {
protected:
    static Stock named(const std::string& name, std::int32_t color = 1)
    {
        return Paper(name, color).stock();
    }
    // "name:color status" of each paper, in order.
    static std::vector<std::string> words(const CFDictionary& papers)
    {
        std::vector<std::string> words;
        for (const auto& each : papers) {
            const StockLibrary paper(*each.value.get<CFDictionary>());
            EXPECT_EQ(paper.name(), paper.stock().customName());
            words.push_back(paper.name() + ":" + std::to_string(paper.stock().color()) + " " +
                            std::to_string(paper.status()));
        }
        return words;
    }
    std::vector<std::string> stored() const
    {
        return words(ReadUserStockList(folders_)->stockList());
    }
    std::vector<std::string> shown() const { return words(*papers_.papers()); }

    void load(UserPapers& papers, const Stock& jobStock = {})
    {
        papers.load(jobStock, {});
        EXPECT_TRUE(AwaitPreferenceChanges(std::chrono::seconds(20)));
    }
    static StockLibraryViewChange select(const std::string& uuid)
    {
        return [uuid](StockLibraryView& view) { view.selectedRow = uuid; };
    }

    UserPapers papers_{folders_};
};

TEST_F(UserPapersTest, AreChangedInMemoryAndInTheFileAlike)
{
    load(papers_);
    const std::string blue = papers_.add(named("Blue", 2));
    const std::string green = papers_.add(named("Green", 4));
    const auto before = papers_.papers();
    EXPECT_TRUE(papers_.hasName("GREEN"));
    EXPECT_EQ(papers_.edit(green, named("Moss", 4)), green);
    EXPECT_THAT(shown(), ElementsAre("Blue:2 0", "Moss:4 0"));
    EXPECT_THAT(words(*before), ElementsAre("Blue:2 0", "Green:4 0")) << "of the task before";
    papers_.use(blue, select(blue));
    papers_.use(green, select(green));
    papers_.remove(blue);
    EXPECT_THAT(shown(), ElementsAre("Moss:4 1"));
    EXPECT_EQ(stored(), shown());
    const auto recent = RecentPapers(folders_, nullptr);
    ASSERT_EQ(recent.size(), 1U);
    EXPECT_EQ(recent[0].uuid, green);
    EXPECT_EQ(ReadStockLibraryView(folders_).selectedRow, green);
    papers_.edit(blue, named("Blue", 3)); // another program has removed it: nothing is lost
    EXPECT_THAT(stored(), ElementsAre("Moss:4 1", "Blue:3 0"));
}

TEST_F(UserPapersTest, TakeThePlaceOfTheOneThatHasTheirName)
{
    load(papers_);
    const std::string blue = papers_.add(named("Blue", 2));
    const std::string green = papers_.add(named("Green", 4));
    EXPECT_EQ(papers_.replace(named("BLUE", 3), ""), blue);
    EXPECT_THAT(stored(), ElementsAre("BLUE:3 0", "Green:4 0"));
    EXPECT_EQ(papers_.replace(named("Blue", 5), green), blue) << "Green was renamed";
    EXPECT_THAT(stored(), ElementsAre("Blue:5 0"));
    EXPECT_EQ(papers_.replace(named("Blue", 6), blue), blue) << "its own name";
    EXPECT_NE(papers_.replace(named("Red", 9), ""), blue) << "the other one has gone meanwhile";
    EXPECT_THAT(stored(), ElementsAre("Blue:6 0", "Red:9 0"));
}

TEST_F(UserPapersTest, OfTheJobAreMarked)
{
    load(papers_);
    papers_.add(named("Blue", 2));
    papers_.use(papers_.add(named("Green", 4)), select(""));
    const std::string odd = papers_.add(named("Odd", 77));
    EXPECT_THAT(stored(), ElementsAre("Blue:2 0", "Green:4 1", "Odd:77 2"));
    UserPapers later(folders_);
    load(later, named("Blue", 2));
    EXPECT_THAT(words(*later.papers()), ElementsAre("Blue:2 1", "Green:4 0", "Odd:77 2"));
    later.edit(odd, named("Odd", 3));
    EXPECT_EQ(words(*later.papers()).back(), "Odd:3 0") << "offered from now on";
    const auto written = std::filesystem::last_write_time(userPath("com.tarvo.print.stocklibrary"));
    load(later, named("Blue", 2));
    EXPECT_EQ(std::filesystem::last_write_time(userPath("com.tarvo.print.stocklibrary")), written);
}

TEST_F(UserPapersTest, StayInMemoryWhenTheyCannotBeSaved)
{
    load(papers_);
    papers_.add(named("Blue", 2));
    testing::internal::CaptureStderr();
    {
        const FailingCall full("write", ENOSPC);
        papers_.add(named("Green", 4));
        EXPECT_THAT(shown(), ElementsAre("Blue:2 0", "Green:4 0"));
        EXPECT_THAT(stored(), ElementsAre("Blue:2 0"));
        EXPECT_FALSE(papers_.state().areSaved);
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "WriteUserPreferences() failed (28)\n");
    papers_.add(named("Red", 9)); // the disk has room again
    EXPECT_TRUE(papers_.state().areSaved);
    EXPECT_THAT(stored(), ElementsAre("Blue:2 0", "Green:4 0", "Red:9 0"));
}

// Another program may hold it for as long as it likes.
TEST_F(UserPapersTest, AreReadWithoutWaitingForTheFile)
{
    load(papers_);
    papers_.add(named("Blue", 2));
    auto held = std::make_unique<FileLock>(userPath("com.tarvo.print.stocklibrary.lock"),
                                           std::chrono::seconds(5));
    ASSERT_EQ(held->state(), FileLock::State::Held);
    UserPapers later(folders_);
    later.load(named("Blue", 2), {});
    EXPECT_THAT(words(*later.papers()), ElementsAre("Blue:2 1"));
    EXPECT_THAT(stored(), ElementsAre("Blue:2 0"));
    held.reset();
    EXPECT_TRUE(AwaitPreferenceChanges(std::chrono::seconds(20)));
    EXPECT_THAT(stored(), ElementsAre("Blue:2 1"));
}

TEST_F(UserPapersTest, LeaveAFileThatCannotBeReadUntilTheUserChangesSomething)
{
    const std::string file = userPath("com.tarvo.print.stocklibrary");
    put(file, "<plist>\n<dict>");
    {
        UserPapers looked(folders_);
        load(looked, named("Blue", 2));
        EXPECT_NE(looked.state().unreadReason, "");
    }
    EXPECT_THAT(names(folders_.user), ElementsAre("com.tarvo.print.stocklibrary"));
    load(papers_);
    papers_.add(named("Blue", 2));
    EXPECT_EQ(papers_.state().unreadReason, "");
    EXPECT_EQ(papers_.state().keptAs, file + ".unreadable");
    EXPECT_THAT(stored(), ElementsAre("Blue:2 0"));
}

} // namespace
} // namespace tarvo
