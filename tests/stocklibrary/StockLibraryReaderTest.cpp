#include "stocklibrary/StockLibraryReader.h"

#include "prefs/PreferenceFolderFixture.h"
#include "stocklibrary/RecentPapers.h"
#include "stocklibrary/StockLibraryKeys.h"
#include "stocklibrary/StockLibraryList.h"
#include "stocklibrary/StockLibraryTestSupport.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

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

TEST_F(StockLibraryReaderTest, SeesAFileOfTheSameSizeAndOneThatHasGone)
{
    add("Blue");
    const auto size = std::filesystem::file_size(file());
    const auto blue = reader_.read();
    std::filesystem::remove(file());
    EXPECT_EQ(papersRead(), 0U);
    add("Gray");
    ASSERT_EQ(std::filesystem::file_size(file()), size);
    EXPECT_EQ(papersRead(), 1U);
    EXPECT_FALSE(*reader_.read() == *blue);
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
