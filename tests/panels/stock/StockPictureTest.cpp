#include "panels/stock/StockPicture.h"

#include "support/StockText.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

constexpr PictureBox Room = {10, 20, 100, 200};

// name, page, the largest page, width and height of the picture
constexpr std::tuple<const char*, StockDimensions, StockDimensions, double, double> PageCases[] = {
    {"half of the largest",   {100, 200}, {200, 400}, 50,  100},
    {"the length decides",    {100, 400}, {100, 800}, 25,  100},
    {"the width decides",     {400, 100}, {400, 100}, 100, 25 },
    {"beyond the largest",    {400, 800}, {200, 400}, 100, 200},
    {"none has been entered", {0, 200},   {200, 400}, 100, 200},
};

TEST(PageBox, IsToScaleAndInTheMiddle)
{
    for (const auto& [name, page, largest, width, height] : PageCases) {
        SCOPED_TRACE(name);
        const PictureBox box = PageBox(page, largest, Room);
        EXPECT_DOUBLE_EQ(box.width, width);
        EXPECT_DOUBLE_EQ(box.height, height);
        EXPECT_DOUBLE_EQ(box.left + box.width / 2, 60);
        EXPECT_DOUBLE_EQ(box.top + box.height / 2, 120);
    }
}

TEST(TabBoxes, ShareTheEdgeAndStayVisible)
{
    EXPECT_TRUE(TabBoxes(0, Room, 8).empty());
    const auto five = TabBoxes(5, Room, 8);
    ASSERT_EQ(five.size(), 5U);
    EXPECT_DOUBLE_EQ(five[0].top, 20);
    EXPECT_DOUBLE_EQ(five[4].top + five[4].height, 220);
    EXPECT_DOUBLE_EQ(five[0].left, 110);
    EXPECT_EQ(TabBoxes(254, Room, 8).size(), 66U) << "as many as can be told apart";
    EXPECT_EQ(TabBoxes(9, {0, 0, 1, 1}, 8).size(), 1U);
}

TEST(PaperColor, IsWhiteForWhatHasNoLook)
{
    EXPECT_NE(PaperColor(StockOf("Color=2")), PictureColor());
    EXPECT_NE(PaperColor(StockOf("Color=2")), PaperColor(StockOf("Color=13")));
    for (const char* white :
         {"", "Color=1", "Color=10", "Color=99", "Color=2 CustomNameOnly=true"}) {
        EXPECT_EQ(PaperColor(StockOf(white)), PictureColor()) << white;
    }
}

} // namespace
} // namespace tarvo
