// The user's library and its order on the disk: site defaults, other processes, faults.
#include "prefs/FailingCall.h"
#include "prefs/PreferenceFolderFixture.h"
#include "stocklibrary/StockLibraryKeys.h"
#include "stocklibrary/StockLibraryList.h"
#include "stocklibrary/StockLibraryOrderList.h"
#include "stocklibrary/StockLibraryTestSupport.h"
#include "stocklibrary/StockLibraryView.h"

#include <gmock/gmock.h>
#include <sys/wait.h>

#include <unistd.h>

#include <numeric>

namespace tarvo {
namespace {

namespace fs = std::filesystem;

using ::testing::ElementsAre;

constexpr const char* SiteDefaults = R"(<plist version="1.0"><dict>
<key>com.tarvo.print.StockLibrary.StockList</key><dict>
 <key>S</key><dict><key>Stock</key><dict><key>Size</key><integer>4</integer></dict></dict>
</dict>
<key>com.tarvo.print.StockLibrary.StockMenuList</key><array><string>S</string></array>
<key>com.tarvo.print.StockLibrary.Preferences</key><array><false/></array>
<key>com.tarvo.print.StockLibrary.SelectedRow</key><string>S</string>
</dict></plist>)";

class StockLibraryFiles : public PreferenceFolderFixture {
protected:
    std::string path() const { return userPath("com.tarvo.print.stocklibrary"); }
    std::vector<std::string> keys() const
    {
        std::vector<std::string> keys;
        const auto root = CopyUserPreferences(folders_, "com.tarvo.print.stocklibrary");
        for (const auto& entry : root.value_or(CFDictionary())) {
            keys.push_back(entry.key.substr(std::string("com.tarvo.print.StockLibrary.").size()));
        }
        return keys;
    }
    std::size_t storedPapers() const { return StockLibraryList(folders_).stockList().size(); }
};

TEST_F(StockLibraryFiles, AreMadeByTheFirstLookWithThatAlone)
{
    StockLibraryList{folders_};
    EXPECT_THAT(keys(), ElementsAre("StockList"));
    CFDictionary first;
    {
        StockLibraryList list(folders_);
        EXPECT_TRUE(list.stockList().empty());
        StockLibrary paper = Paper("Blue");
        EXPECT_EQ(list.add(paper), paper.uuid());
        EXPECT_THAT(keys(), ElementsAre("StockList"));
        list.add(paper); // its like makes another
        first = list.stockList();
        EXPECT_EQ(first.size(), 2U);
    }
    EXPECT_EQ(StockLibraryList(folders_).stockList(), first);
    StockLibraryOrderList(folders_).updateOrderList("A");
    EXPECT_THAT(keys(), ElementsAre("StockList", "StockMenuList"));
    EXPECT_EQ(storedPapers(), 2U);
}

TEST_F(StockLibraryFiles, BeginWithWhatTheSiteGives)
{
    put(sitePath("TarvoFeatures.plist", 1), SiteDefaults);
    StockLibraryList{folders_};
    EXPECT_THAT(keys(), ElementsAre("StockList", "StockMenuList", "Preferences"));
    fs::remove(path());
    {
        StockLibraryList list(folders_);
        EXPECT_EQ(list.stockList().size(), 1U);
        list.remove("S");
        StockLibraryOrderList order(folders_);
        EXPECT_EQ(order.stockOrderList(), CFArray{"S"}); // though the user has a file now
    }
    EXPECT_THAT(keys(), ElementsAre("StockList", "StockMenuList", "Preferences"));
    EXPECT_EQ(storedPapers(), 0U);
    put(path(), "<plist version=\"1.0\"><dict/></plist>"); // lacks the key: no way to the site's
    EXPECT_EQ(storedPapers(), 0U);
    EXPECT_TRUE(StockLibraryOrderList(folders_).stockOrderList().empty());
}

TEST_F(StockLibraryFiles, KeepWhatTheyDoNotKnow)
{
    put(path(), R"(<plist version="1.0"><dict>
<key>com.tarvo.print.StockLibrary.SelectedRow</key><string>x</string>
<key>com.tarvo.print.StockLibrary.StockList</key><dict>
 <key>odd</key><string>no entry</string>
 <key>A</key><dict><key>Newer</key><true/></dict>
</dict>
<key>com.tarvo.print.StockLibrary.StockMenuList</key><string>no list</string>
</dict></plist>)");
    StockLibrary paper = Paper("Blue");
    {
        StockLibraryList list(folders_);
        EXPECT_FALSE(list.isDuplicate("odd"));
        EXPECT_EQ(*list.findMatch(Stock()), "A");
        list.setInUse("odd");
        list.clearStatus();
        list.add(paper);
    }
    StockLibraryOrderList(folders_).updateOrderList("A");
    EXPECT_THAT(keys(), ElementsAre("SelectedRow", "StockList", "StockMenuList"));
    const StockLibraryList list(folders_);
    EXPECT_EQ(*list.stockList().get<std::string>("odd"), "no entry");
    EXPECT_EQ(list.stockList().size(), 3U);
    EXPECT_EQ(StockLibraryOrderList(folders_).stockOrderList(), CFArray{"A"});
}

TEST_F(StockLibraryFiles, KeepTheLast25PapersInOrder)
{
    StockLibraryOrderList order(folders_);
    CFArray expected;
    for (int paper = 0; paper < 27; ++paper) {
        order.updateOrderList(std::to_string(paper));
        expected.insert(expected.begin(), std::to_string(paper));
    }
    expected.resize(25, "");
    EXPECT_EQ(order.stockOrderList(), expected);
    order.updateOrderList("10");
    order.updateOrderList("");
    EXPECT_EQ(order.stockOrderList().size(), 25U);
    EXPECT_EQ(order.stockOrderList().front(), "10");
    order.remove("10");
    EXPECT_EQ(StockLibraryOrderList(folders_).stockOrderList(), order.stockOrderList());
    EXPECT_EQ(order.stockOrderList().front(), "26");
    order.clearOrderList();
    EXPECT_TRUE(StockLibraryOrderList(folders_).stockOrderList().empty());
}

TEST_F(StockLibraryFiles, LoseNothingOfTwoListsAtOnce)
{
    StockLibrary first = Paper("A");
    StockLibrary second = Paper("B");
    {
        StockLibraryList one(folders_);
        StockLibraryList two(folders_);
        one.add(first);
        two.add(second);
        EXPECT_EQ(two.stockList().size(), 1U); // until it reads again
        Stock blue = Paper("b", 2).stock();
        StockLibrary replacement;
        replacement.setStock(blue);
        two.replace(replacement);
        one.setInUse(second.uuid()); // unknown here
        one.read();
        one.setInUse(second.uuid());
    }
    const StockLibraryList list(folders_);
    EXPECT_EQ(list.stockList().size(), 2U);
    EXPECT_EQ(list.entry(second.uuid())->stock().color(), 2);
    EXPECT_EQ(list.entry(second.uuid())->status(), 1);
}

TEST_F(StockLibraryFiles, LoseNothingOfSeveralProcesses)
{
    constexpr int Processes = 16;
    constexpr int Papers = 5;
    std::vector<pid_t> children;
    for (int child = 0; child < Processes; ++child) {
        children.push_back(fork());
        if (children.back() == 0) {
            for (int paper = 0; paper < Papers; ++paper) {
                StockLibraryList list(folders_);
                StockLibrary entry = Paper(std::to_string(child) + "." + std::to_string(paper));
                StockLibraryOrderList(folders_).updateOrderList(list.add(entry));
            }
            _exit(0);
        }
    }
    for (const pid_t child : children) {
        int status = -1;
        EXPECT_EQ(waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(storedPapers(), std::size_t{Processes} * Papers);
    EXPECT_EQ(StockLibraryOrderList(folders_).stockOrderList().size(), 25U);
}

TEST_F(StockLibraryFiles, AreSavedLaterWhenTheDiskWasFull)
{
    StockLibrary first = Paper("A");
    StockLibrary second = Paper("B");
    StockLibraryList{folders_}.add(first);
    {
        StockLibraryList list(folders_);
        testing::internal::CaptureStderr();
        {
            const FailingCall call("write", ENOSPC);
            list.add(second);
            list.remove(first.uuid());
            EXPECT_EQ(list.stockList().size(), 1U);
            EXPECT_EQ(storedPapers(), 1U); // the old file
        }
        EXPECT_EQ(testing::internal::GetCapturedStderr(),
                  "WriteUserPreferences() failed (28)\nWriteUserPreferences() failed (28)\n");
    }
    const StockLibraryList list(folders_);
    ASSERT_EQ(list.stockList().size(), 1U);
    EXPECT_EQ(list.stockList().begin()->key, second.uuid());
}

TEST_F(StockLibraryFiles, AreLeftAloneWhereTheyCannotBeWritten)
{
    StockLibrary paper = Paper("A");
    StockLibraryList{folders_}.add(paper);
    fs::rename(path(), path() + ".kept");
    fs::create_symlink(path() + ".kept", path());
    put(sitePath("TarvoFeatures.plist"), SiteDefaults);
    testing::internal::CaptureStderr();
    {
        StockLibraryList list(folders_);
        EXPECT_EQ(list.stockList().begin()->key, "S"); // a link is not followed
        list.remove("S");
    }
    EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::HasSubstr("failed (40)\n"));
    fs::rename(path() + ".kept", path());
    EXPECT_EQ(StockLibraryList(folders_).stockList().begin()->key, paper.uuid());
}

// The user has them on the screen.
TEST_F(StockLibraryFiles, ComeBackWhenTheFileGoesOrBreaksMeanwhile)
{
    put(sitePath("TarvoFeatures.plist"), SiteDefaults);
    for (const bool isGone : {true, false}) {
        SCOPED_TRACE(isGone);
        StockLibrary blue = Paper("Blue");
        StockLibrary green = Paper("Green");
        StockLibraryList list(folders_);
        list.add(blue);
        if (isGone) {
            fs::remove(path());
        } else {
            put(path(), "<plist>");
        }
        list.add(green);
        EXPECT_EQ(StockLibraryList(folders_).stockList(), list.stockList());
        EXPECT_TRUE(StockLibraryList(folders_).isDuplicate("Blue"));
        EXPECT_EQ(fs::exists(path() + ".unreadable"), !isGone);
    }
}

TEST_F(StockLibraryFiles, TellHowTheDialogWasLeft)
{
    EXPECT_EQ(ReadStockLibraryView(folders_), StockLibraryView());
    put(path(), R"(<plist version="1.0"><dict>
<key>com.tarvo.print.StockLibrary.Preferences</key>
<array><false/><false/><integer>0</integer><true/></array>
<key>com.tarvo.print.StockLibrary.ColumnWidths</key><dict>
 <key>NAME</key><integer>120</integer><key>SIZE</key><integer>0</integer>
 <key>COLR</key><integer>32768</integer><key>ODDS</key><integer>7</integer>
</dict>
<key>com.tarvo.print.StockLibrary.SelectedRow</key><string>A</string>
</dict></plist>)");
    StockLibraryView expected;
    expected.isHidden[1] = true;
    expected.widths[0] = 120;
    expected.selectedRow = "A";
    EXPECT_EQ(ReadStockLibraryView(folders_), expected);

    const auto change = [](StockLibraryView& view) {
        view.isHidden.fill(true);
        view.widths[12] = 32767;
        view.selectedRow = "";
    };
    ASSERT_TRUE(ChangeStockLibraryView(folders_, change, failure_)) << failure_.message();
    expected.isHidden.fill(true);
    expected.isHidden[0] = false; // a paper without a name would be none
    expected.widths[12] = 32767;
    expected.selectedRow = "";
    EXPECT_EQ(ReadStockLibraryView(folders_), expected);
    const CFDictionary root = ReadStockLibraryFile(folders_);
    CFArray shown(13, false);
    shown[0] = true;
    EXPECT_EQ(*root.get<CFArray>("com.tarvo.print.StockLibrary.Preferences"), shown);
    const auto* widths = root.get<CFDictionary>("com.tarvo.print.StockLibrary.ColumnWidths");
    EXPECT_EQ(widths->int32("CMNT"), 32767);
    EXPECT_EQ(widths->int32("ODDS"), 7);
    EXPECT_THAT(keys(), ElementsAre("Preferences", "ColumnWidths"));
}

TEST_F(StockLibraryFiles, LeaveTheSitesColumnsUntilTheUserHasOwn)
{
    put(sitePath("TarvoFeatures.plist"), SiteDefaults);
    EXPECT_EQ(ReadStockLibraryView(folders_).selectedRow, ""); // the user's alone
    const auto select = [](StockLibraryView& view) { view.selectedRow = "S"; };
    ASSERT_TRUE(ChangeStockLibraryView(folders_, select, failure_));
    const CFDictionary root = ReadStockLibraryFile(folders_);
    EXPECT_EQ(*root.get<CFArray>("com.tarvo.print.StockLibrary.Preferences"), CFArray{false});
}

TEST_F(StockLibraryFiles, ThatNobodyUnderstandsCountAsNone)
{
    StockLibrary paper = Paper("A");
    for (const char* text : {"", "papers", "<plist><dict><key>a</key><dict>"}) {
        SCOPED_TRACE(text);
        put(path(), text);
        PreferenceFailure failure;
        EXPECT_TRUE(ReadStockLibraryFile(folders_, &failure).empty());
        EXPECT_EQ(failure.error, 0);
        EXPECT_NE(failure.reason, "");
        StockLibraryList list(folders_);
        list.add(paper);
        EXPECT_EQ(storedPapers(), 1U);
        EXPECT_TRUE(fs::exists(path() + ".unreadable"));
    }
}

} // namespace
} // namespace tarvo
