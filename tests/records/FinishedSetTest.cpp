#include "records/FinishedSet.h"

#include "support/BuiltBundle.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tarvo {
namespace {

using Finishing = FinishingChoice;

FinishedSet SetWith(std::int32_t option, std::int32_t Finishing::*position, std::int32_t value,
                    bool isLandscape = false)
{
    FinishedSet set;
    set.finishing.option = option;
    set.finishing.*position = value;
    set.isLandscape = isLandscape;
    return set;
}

// Where a place is, in words: "top left", "left" for the middle of the left edge.
std::string Words(SheetPlace place)
{
    const auto word = [](double part, const char* low, const char* high) {
        return std::string(part < 0.15 ? low : part > 0.85 ? high : "");
    };
    const std::string y = word(place.y, "top", "bottom");
    const std::string x = word(place.x, "left", "right");
    return y + (x.empty() || y.empty() ? "" : " ") + x;
}

std::string Lie(double degrees)
{
    const int turned = static_cast<int>(std::lround(degrees + 360)) % 180;
    return turned == 0 ? "-" : turned == 45 ? "\\" : turned == 90 ? "|" : "/";
}

std::string StaplesInWords(const FinishingMarks& marks)
{
    std::string words;
    for (const StapleMark& staple : marks.staples) {
        words += Words(staple.place) + " " + Lie(staple.degrees) + "; ";
    }
    return words;
}

struct StapleCase {
    std::int32_t option;
    std::int32_t Finishing::*position;
    std::int32_t value;
    const char* upright;
    const char* lying; // as the summary's words after "or" have it
};

constexpr StapleCase StapleCases[] = {
    {4,  &Finishing::oneStaple,    5,  "top left /; ",         "top right \\; "      },
    {4,  &Finishing::oneStaple,    6,  "bottom left \\; ",     "top left /; "        },
    {4,  &Finishing::oneStaple,    7,  "top right \\; ",       "bottom right /; "    },
    {4,  &Finishing::oneStaple,    8,  "bottom right /; ",     "bottom left \\; "    },
    {9,  &Finishing::twoStaples,   10, "left |; left |; ",     "top -; top -; "      },
    {9,  &Finishing::twoStaples,   11, "top -; top -; ",       "right |; right |; "  },
    {9,  &Finishing::twoStaples,   12, "bottom -; bottom -; ", "left |; left |; "    },
    {9,  &Finishing::twoStaples,   13, "right |; right |; ",   "bottom -; bottom -; "},
    {25, &Finishing::centerStaple, 26, "left |; ",             "top -; "             },
    {51, &Finishing::centerStaple, 28, "bottom -; ",           "left |; "            },
    {9,  &Finishing::twoStaples,   5,  "",                     ""                    },
    {9,  &Finishing::oneStaple,    5,  "",                     ""                    },
};

TEST(FinishedSet, HasStaplesWhereTheirWordsSay)
{
    for (const auto& row : StapleCases) {
        SCOPED_TRACE(row.value);
        const auto set = [&row](bool isLandscape) {
            return SetWith(row.option, row.position, row.value, isLandscape);
        };
        EXPECT_EQ(StaplesInWords(MarksOf(set(false))), row.upright);
        EXPECT_EQ(StaplesInWords(MarksOf(set(true))), row.lying);
    }
}

TEST(FinishedSet, HasAsManyHolesAsChosenOnOneSide)
{
    struct HoleCase {
        std::int32_t position;
        std::int32_t holes;
        std::size_t count;
        const char* upright;
        const char* lying;
    };
    constexpr HoleCase cases[] = {
        {32, 3, 2, "left",   "top"   },
        {33, 4, 3, "top",    "right" },
        {34, 5, 4, "bottom", "left"  },
        {35, 0, 3, "right",  "bottom"},
        {49, 4, 0, "",       ""      },
    };
    for (const auto& row : cases) {
        for (const bool isLandscape : {false, true}) {
            FinishedSet set = SetWith(49, &Finishing::punch, row.position, isLandscape);
            set.finishing.holes = row.holes;
            const auto holes = MarksOf(set).holes;
            ASSERT_EQ(holes.size(), row.count);
            for (const SheetPlace& hole : holes) {
                EXPECT_NE(Words(hole).find(isLandscape ? row.lying : row.upright),
                          std::string::npos);
            }
        }
    }
}

constexpr std::pair<std::int32_t, std::int32_t Finishing::*> FoldPositions[] = {
    {19, &Finishing::fold },
    {20, &Finishing::fold },
    {38, &Finishing::zFold},
    {39, &Finishing::zFold},
    {41, &Finishing::fold },
    {42, &Finishing::fold },
    {43, &Finishing::fold },
    {44, &Finishing::fold },
    {45, &Finishing::fold },
    {46, &Finishing::fold },
    {47, &Finishing::fold },
    {48, &Finishing::fold },
};

std::int32_t OptionOfFold(std::int32_t value)
{
    return value < 21 ? 18 : value < 40 ? 36 : 40;
}

TEST(FinishedSet, FoldsPaperThatNeitherStretchesNorShrinks)
{
    for (const auto& [value, position] : FoldPositions) {
        const auto points = MarksOf(SetWith(OptionOfFold(value), position, value)).folds.points;
        ASSERT_GE(points.size(), 3U) << value;
        EXPECT_EQ(points.front().along, 0);
        EXPECT_EQ(points.back().along, 1);
        for (std::size_t end = 1; end < points.size(); ++end) {
            const FoldPoint& from = points[end - 1];
            const FoldPoint& to = points[end];
            const double length = std::hypot(to.place - from.place, to.height - from.height);
            EXPECT_NEAR(length, to.along - from.along, 0.03) << value << ", panel " << end;
            const auto middle = PlaceOnFolds(points, (from.along + to.along) / 2);
            EXPECT_NEAR(middle.place, (from.place + to.place) / 2, 1e-9);
            EXPECT_NEAR(middle.height, (from.height + to.height) / 2, 1e-9);
        }
    }
    EXPECT_EQ(PlaceOnFolds({}, 0.3).place, 0.3);
}

TEST(FinishedSet, FoldsAcrossTheLengthOfThePaper)
{
    EXPECT_TRUE(MarksOf(SetWith(18, &Finishing::fold, 19, false)).folds.areFlat);
    EXPECT_FALSE(MarksOf(SetWith(18, &Finishing::fold, 19, true)).folds.areFlat);
    EXPECT_TRUE(MarksOf(SetWith(40, &Finishing::fold, 42)).folds.isEachSheet);
    EXPECT_FALSE(MarksOf(SetWith(40, &Finishing::fold, 44)).folds.isEachSheet);
    const auto heightOfEnd = [](std::int32_t option, auto position, std::int32_t value) {
        return MarksOf(SetWith(option, position, value)).folds.points.front().height;
    };
    EXPECT_GT(heightOfEnd(40, &Finishing::fold, 45), 0) << "print inside";
    EXPECT_LT(heightOfEnd(40, &Finishing::fold, 46), 0) << "print outside";
    EXPECT_EQ(heightOfEnd(36, &Finishing::zFold, 38), 0) << "bound at the left, which stays";
    EXPECT_GT(heightOfEnd(36, &Finishing::zFold, 39), 0) << "bound at the right";
}

TEST(FinishedSet, LiesWithItsZFoldAsWithItsStaples)
{
    struct LiftedCase {
        std::int32_t zFold;
        std::int32_t twoStaples;
        std::int32_t punch;
        std::size_t staples; // and holes: those that are not on the part that is folded over
        std::size_t holes;
    };
    constexpr LiftedCase cases[] = {
        {38, 10, 32, 2, 3},
        {38, 11, 33, 1, 1}, // a hole is on the crease
        {38, 13, 35, 0, 0},
        {39, 13, 32, 2, 0},
    };
    for (const auto& row : cases) {
        for (const bool isLandscape : {false, true}) {
            FinishedSet set = SetWith(50, &Finishing::twoStaples, row.twoStaples, isLandscape);
            set.finishing.zFold = row.zFold;
            set.finishing.punch = row.punch;
            const FinishingMarks marks = MarksOf(set);
            EXPECT_EQ(marks.folds.areFlat, isLandscape);
            EXPECT_EQ(marks.staples.size(), row.staples) << row.zFold << ", " << row.twoStaples;
            EXPECT_EQ(marks.holes.size(), row.holes) << row.zFold << ", " << row.punch;
        }
    }
}

struct BookletCase {
    const char* name;
    std::int32_t option;
    std::int32_t bookletFold;
    bool bookletLayout;
    bool isBooklet;
    bool isFolded;
    std::size_t staples;
};

constexpr BookletCase BookletCases[] = {
    {"folded",                   24, 7, false, true,  true,  0},
    {"folded and stapled",       24, 8, false, true,  true,  2},
    {"signature booklet",        3,  1, false, true,  true,  2},
    {"the layout's own folding", 0,  8, true,  true,  true,  2},
    {"layout without folding",   0,  1, true,  true,  false, 0},
    {"another family counts",    1,  8, true,  true,  false, 0},
    {"no booklet",               0,  1, false, false, false, 0},
    {"no document's folding",    24, 9, true,  true,  false, 0},
    {"nor the layout's",         0,  9, true,  true,  false, 0},
};

TEST(FinishedSet, IsABookletByFinishingOrLayout)
{
    for (const auto& row : BookletCases) {
        SCOPED_TRACE(row.name);
        FinishedSet set = SetWith(row.option, &Finishing::bookletFold, row.bookletFold);
        set.finishing.bookletLayout = row.bookletLayout;
        const FinishingMarks marks = MarksOf(set);
        EXPECT_EQ(marks.isBooklet, row.isBooklet);
        EXPECT_EQ(!marks.folds.points.empty(), row.isFolded);
        EXPECT_EQ(marks.staples.size(), row.staples);
    }
}

TEST(FinishedSet, IsBoundAtOneEdge)
{
    using enum SheetEdge;
    EXPECT_EQ(MarksOf(SetWith(14, &Finishing::bind, 15)).binding, Left);
    EXPECT_EQ(MarksOf(SetWith(14, &Finishing::bind, 15, true)).binding, Top);
    EXPECT_EQ(MarksOf(SetWith(14, &Finishing::bind, 16)).binding, Right);
    EXPECT_EQ(MarksOf(SetWith(14, &Finishing::bind, 16, true)).binding, Bottom);
    EXPECT_EQ(MarksOf(SetWith(9, &Finishing::bind, 16, true)).binding, None);
}

TEST(FinishedSet, IsToldInWords)
{
    FinishedSet set = SetWith(9, &Finishing::twoStaples, 10, true);
    set.paperColor = 2;
    set.sides = 3;
    set.finishing.offset = 3;
    EXPECT_EQ(DescribeFinishedSet(set, BuiltBundle()),
              "Blue\nLandscape\n2-Sided, Flip on Short Edge\n2 staples, left or top\n"
              "Offset: Each set\n");
    set = SetWith(30, &Finishing::punch, 32);
    set.paperColor = 10;
    set.ownColor = "Böck red";
    EXPECT_EQ(DescribeFinishedSet(set, BuiltBundle()),
              "Böck red\nPortrait\n1-Sided\nHole punch, left or top\nOffset: Printer Default\n"
              "3 Holes\n");
    set = SetWith(0, &Finishing::bookletFold, 8);
    set.finishing.bookletLayout = true;
    EXPECT_EQ(DescribeFinishedSet(set, BuiltBundle()),
              "Portrait\n1-Sided\nBooklet, folded and stapled\nPrinter Default\nBooklet layout\n"
              "Offset: Printer Default\n");
    EXPECT_EQ(DescribeFinishedSet(FinishedSet(), BuiltBundle()),
              "Portrait\n1-Sided\nPrinter Default\nOffset: Printer Default\n");
}

} // namespace
} // namespace tarvo
