#include "stocklibrary/StockLibraryReader.h"

#include "prefs/PreferenceFolderFixture.h"
#include "stocklibrary/RecentPapers.h"
#include "stocklibrary/StockLibraryKeys.h"
#include "stocklibrary/StockLibraryList.h"
#include "stocklibrary/StockLibraryTestSupport.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

namespace tarvo {
namespace {

class StockLibraryReaderTest : public PreferenceFolderFixture {
protected:
    std::string file() const { return userPath("com.tarvo.print.stocklibrary"); }
    void add(const std::string& name) const
    {
        StockLibrary paper = Paper(name);
        StockLibraryList(folders_).add(paper);
    }
    std::size_t papersRead()
    {
        const auto library = reader_.read();
        const auto* papers = library->get<CFDictionary>(StockListKey);
        return papers == nullptr ? 0 : papers->size();
    }

    StockLibraryReader reader_{folders_};
};

TEST_F(StockLibraryReaderTest, ReadsAgainOnlyWhenTheFileIsAnotherOne)
{
    EXPECT_FALSE(reader_.isFileKnown()) << "nobody has looked";
    EXPECT_EQ(papersRead(), 0U);
    EXPECT_TRUE(reader_.isFileKnown()) << "there is none";
    add("Blue");
    EXPECT_FALSE(reader_.isFileKnown());
    EXPECT_EQ(papersRead(), 1U);
    EXPECT_TRUE(reader_.isFileKnown());
    const auto before = reader_.read();
    EXPECT_EQ(reader_.read(), before);
    add("Blue"); // by another list, as of another process
    EXPECT_FALSE(reader_.isFileKnown());
    EXPECT_EQ(papersRead(), 2U);
    EXPECT_NE(reader_.read(), before);
}

TEST_F(StockLibraryReaderTest, SeesThatTheFileHasGone)
{
    add("Blue");
    EXPECT_EQ(papersRead(), 1U);
    std::filesystem::remove(file());
    EXPECT_EQ(papersRead(), 0U);
}

// Nothing looks between the two.
TEST_F(StockLibraryReaderTest, SeesAnotherFileOfTheSameSize)
{
    add("Blue");
    const auto blue = reader_.read();
    const auto size = std::filesystem::file_size(file());
    std::filesystem::rename(file(), file() + ".old");
    add("Gray");
    ASSERT_EQ(std::filesystem::file_size(file()), size);
    EXPECT_FALSE(reader_.isFileKnown());
    EXPECT_FALSE(*reader_.read() == *blue);
}

// As when a backup is brought back into the same file.
TEST_F(StockLibraryReaderTest, SeesAFileWhoseTimeIsSetBack)
{
    constexpr std::chrono::milliseconds ClockTick(20);
    add("Blue");
    const auto written = std::filesystem::last_write_time(file());
    reader_.read();
    std::this_thread::sleep_for(ClockTick);
    std::fstream(file()) << "<?xml version='1.0'"; // instead of as many other characters
    std::filesystem::last_write_time(file(), written);
    EXPECT_FALSE(reader_.isFileKnown());
}

TEST_F(StockLibraryReaderTest, KnowsTheSitesFileOfAUserWithoutOne)
{
    constexpr const char* Site = R"(<plist version="1.0"><dict>
<key>com.tarvo.print.StockLibrary.StockList</key><dict><key>S</key><dict/></dict></dict></plist>)";
    EXPECT_EQ(papersRead(), 0U);
    put(sitePath("TarvoFeatures.plist", 1), Site);
    EXPECT_FALSE(reader_.isFileKnown());
    EXPECT_EQ(papersRead(), 1U);
    EXPECT_TRUE(reader_.isFileKnown());
    EXPECT_EQ(reader_.read(), reader_.read());
    put(sitePath("TarvoFeatures.plist", 0), "<plist version=\"1.0\"><dict/></plist>");
    EXPECT_EQ(papersRead(), 0U) << "the first folder's counts";
}

TEST_F(StockLibraryReaderTest, KeepsNothingOfAFileThatCannotBeRead)
{
    add("Blue");
    EXPECT_EQ(papersRead(), 1U);
    std::ofstream(file()) << "<plist>";
    EXPECT_EQ(papersRead(), 0U);
    EXPECT_FALSE(reader_.isFileKnown()) << "the next look may have better luck";
}

} // namespace
} // namespace tarvo
