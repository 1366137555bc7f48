// What the print features need of the QL900's description and no general check of PPDs looks for.

#include "printer/PPDKeywordMaps.h"
#include "settings/StockMaps.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace tarvo {
namespace {

class ProductionPrinter : public testing::Test {
protected:
    void SetUp() override
    {
        std::ifstream file(TARVO_SOURCE_DIR "/resources/ppd/TarvoQL900.ppd");
        for (std::string line; std::getline(file, line);) {
            lines_.push_back(line);
        }
        ASSERT_FALSE(lines_.empty());
    }

    /// What follows the keyword on each of its lines: "A4/A4 (210 x 297 mm): "595 842"".
    std::vector<std::string> entries(const std::string& keyword) const
    {
        std::vector<std::string> found;
        for (const auto& line : lines_) {
            if (line.starts_with("*" + keyword + " ")) {
                found.push_back(line.substr(keyword.size() + 2));
            }
        }
        return found;
    }

    bool hasLine(const std::string& start, const std::string& end) const
    {
        for (const auto& line : lines_) {
            if (line.starts_with(start) && line.ends_with(end)) {
                return true;
            }
        }
        return false;
    }

private:
    std::vector<std::string> lines_;
};

std::string ChoiceOf(const std::string& entry)
{
    return entry.substr(0, entry.find('/'));
}

std::string QuotedValueOf(const std::string& entry)
{
    const auto start = entry.find('"') + 1;
    return entry.substr(start, entry.rfind('"') - start);
}

// A choice that no table knows would stand in the menu and change nothing.
TEST_F(ProductionPrinter, OffersKnownChoicesOfEveryMainKeyword)
{
    for (const auto* main = MainKeywordMap; main->keyword != nullptr; ++main) {
        SCOPED_TRACE(main->keyword);
        const std::string keyword = main->keyword;
        const std::string open = keyword.starts_with("JCL") ? "*JCLOpenUI *" : "*OpenUI *";
        EXPECT_TRUE(hasLine(open + keyword + "/", ": PickOne"));
        EXPECT_GE(entries(keyword).size(), 2U);
        for (const auto& entry : entries(keyword)) {
            EXPECT_NE(GetTicketValueForPPDOptionKeyword(main->options, ChoiceOf(entry)), -1)
                << entry;
        }
    }
}

const PaperSizeSettingMap* StockSize(std::int32_t value)
{
    for (const auto* row = CompleteStockSizeMap; row->key != nullptr; ++row) {
        if (row->value == value) {
            return row;
        }
    }
    return nullptr;
}

// The 13 in of 13x19 are one point more than in the table.
TEST_F(ProductionPrinter, MeasuresItsSizesAsTheStockSizesDo)
{
    const auto sizes = entries("PageSize");
    const auto dimensions = entries("PaperDimension");
    ASSERT_EQ(sizes.size(), dimensions.size());
    for (std::size_t index = 0; index < sizes.size(); ++index) {
        SCOPED_TRACE(dimensions[index]);
        const std::string choice = ChoiceOf(dimensions[index]);
        EXPECT_EQ(ChoiceOf(sizes[index]), choice);
        const std::string points = QuotedValueOf(dimensions[index]);
        EXPECT_NE(sizes[index].find("[" + points + "]"), std::string::npos);
        const auto* row = StockSize(GetTicketValueForPPDOptionKeyword(PageSizeMap, choice));
        if (row == nullptr) {
            continue; // a size of printers only
        }
        std::int32_t width = 0;
        std::int32_t length = 0;
        std::istringstream(points) >> width >> length;
        EXPECT_NEAR(width, row->widthPoints, 1);
        EXPECT_EQ(length, row->lengthPoints);
    }
}

// Readers look a conflict up by the option that was just changed, which may be either of the two.
TEST_F(ProductionPrinter, StatesEveryConstraintInBothDirections)
{
    std::set<std::pair<std::string, std::string>> pairs;
    for (const auto& line : entries("UIConstraints:")) {
        const auto second = line.find(" *");
        ASSERT_NE(second, std::string::npos) << line;
        const bool isNew = pairs.emplace(line.substr(0, second), line.substr(second + 1)).second;
        EXPECT_TRUE(isNew) << "twice: " << line;
    }
    EXPECT_FALSE(pairs.empty());
    for (const auto& [first, second] : pairs) {
        EXPECT_TRUE(pairs.contains({second, first})) << first << " " << second;
    }
}

} // namespace
} // namespace tarvo
