#include "records/FinishedSet.h"

#include "records/FinishingMenu.h"
#include "settings/SettingMap.h"
#include "support/BuiltBundle.h"
#include "support/FinishingText.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tarvo {
namespace {

FinishedSet SetWith(const std::string& finishing, bool isLandscape = false)
{
    FinishedSet set;
    set.finishing = FinishingOf(finishing);
    set.isLandscape = isLandscape;
    return set;
}

FinishingMarks Marks(const std::string& finishing, bool isLandscape = false)
{
    return MarksOf(SetWith(finishing, isLandscape));
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
    const char* finishing;
    const char* upright;
    const char* lying; // as the summary's words after "or" have it
};

constexpr StapleCase StapleCases[] = {
    {"Options: 4, Staple1Value: 5",        "top left /; ",       "top right \\; "      },
    {"Options: 4, Staple1Value: 6",        "bottom left \\; ",   "top left /; "        },
    {"Options: 4, Staple1Value: 7",        "top right \\; ",     "bottom right /; "    },
    {"Options: 4, Staple1Value: 8",        "bottom right /; ",   "bottom left \\; "    },
    {"Options: 9, Staple2Value: 10",       "left |; left |; ",   "top -; top -; "      },
    {"Options: 9, Staple2Value: 11",       "top -; top -; ",     "right |; right |; "  },
    {"Options: 9, Staple2Value: 13",       "right |; right |; ", "bottom -; bottom -; "},
    {"Options: 51, StapleCenterValue: 28", "bottom -; ",         "left |; "            },
    {"Options: 9, Staple2Value: 5",        "",                   ""                    },
    {"Options: 9, Staple1Value: 5",        "",                   ""                    },
};

TEST(FinishedSet, HasStaplesWhereTheirWordsSay)
{
    for (const auto& row : StapleCases) {
        SCOPED_TRACE(row.finishing);
        EXPECT_EQ(StaplesInWords(Marks(row.finishing)), row.upright);
        EXPECT_EQ(StaplesInWords(Marks(row.finishing, true)), row.lying);
    }
}

struct HoleCase {
    const char* finishing;
    std::size_t count;
    const char* upright;
    const char* lying;
};

constexpr HoleCase HoleCases[] = {
    {"HolePunchValue: 32, HolePunchOptions: 3", 2, "left",   "top"   },
    {"HolePunchValue: 33, HolePunchOptions: 4", 3, "top",    "right" },
    {"HolePunchValue: 34, HolePunchOptions: 5", 4, "bottom", "left"  },
    {"HolePunchValue: 35, HolePunchOptions: 0", 3, "right",  "bottom"},
    {"HolePunchValue: 49, HolePunchOptions: 4", 0, "",       ""      },
};

TEST(FinishedSet, HasAsManyHolesAsChosenOnOneSide)
{
    for (const auto& row : HoleCases) {
        for (const bool isLandscape : {false, true}) {
            const std::string side = isLandscape ? row.lying : row.upright;
            const auto holes =
                Marks(row.finishing + std::string(", Options: 49"), isLandscape).holes;
            ASSERT_EQ(holes.size(), row.count) << row.finishing;
            for (const SheetPlace& hole : holes) {
                EXPECT_NE(Words(hole).find(side), std::string::npos) << row.finishing;
            }
        }
    }
}

TEST(FinishedSet, FoldsPaperThatNeitherStretchesNorShrinks)
{
    std::vector<FinishingChoice> folded;
    for (const std::int32_t option : {18, 36, 40}) {
        for (const SettingMap* map : FinishingPositionMaps(option)) {
            for (; map->key != nullptr; ++map) {
                folded.push_back(ChooseFinishing({}, option, map->value));
            }
        }
    }
    ASSERT_EQ(folded.size(), 12U);
    for (const FinishingChoice& finishing : folded) {
        SCOPED_TRACE(testing::Message() << finishing.fold << " " << finishing.zFold);
        const auto points = MarksOf(WithFinishing({}, finishing)).folds.points;
        ASSERT_GE(points.size(), 3U);
        EXPECT_EQ(points.front().along, 0);
        EXPECT_EQ(points.back().along, 1);
        for (std::size_t end = 1; end < points.size(); ++end) {
            const FoldPoint& from = points[end - 1];
            const FoldPoint& to = points[end];
            const double length = std::hypot(to.place - from.place, to.height - from.height);
            EXPECT_NEAR(length, to.along - from.along, 0.03) << "panel " << end;
            const auto middle = PlaceOnFolds(points, (from.along + to.along) / 2);
            EXPECT_NEAR(middle.place, (from.place + to.place) / 2, 1e-9);
            EXPECT_NEAR(middle.height, (from.height + to.height) / 2, 1e-9);
        }
    }
    EXPECT_EQ(PlaceOnFolds({}, 0.3).place, 0.3);
}

TEST(FinishedSet, FoldsAcrossTheLengthOfThePaper)
{
    EXPECT_TRUE(Marks("Options: 18, FoldValue: 19").folds.areFlat);
    EXPECT_FALSE(Marks("Options: 18, FoldValue: 19", true).folds.areFlat);
    EXPECT_TRUE(Marks("Options: 40, FoldValue: 42").folds.isEachSheet);
    EXPECT_FALSE(Marks("Options: 40, FoldValue: 44").folds.isEachSheet);
    const auto heightOfEnd = [](const char* finishing) {
        return Marks(finishing).folds.points.front().height;
    };
    EXPECT_GT(heightOfEnd("Options: 40, FoldValue: 45"), 0) << "print inside";
    EXPECT_LT(heightOfEnd("Options: 40, FoldValue: 46"), 0) << "print outside";
    EXPECT_EQ(heightOfEnd("Options: 36, ZFoldValue: 38"), 0) << "bound at the left, which stays";
    EXPECT_GT(heightOfEnd("Options: 36, ZFoldValue: 39"), 0) << "bound at the right";
}

struct LiftedCase {
    const char* finishing;
    std::size_t staples; // and holes: those that are not on the part that is folded over
    std::size_t holes;
};

constexpr LiftedCase LiftedCases[] = {
    {"ZFoldValue: 38, Staple2Value: 10, HolePunchValue: 32", 2, 3},
    {"ZFoldValue: 38, Staple2Value: 11, HolePunchValue: 33", 1, 1}, // a hole is on the crease
    {"ZFoldValue: 38, Staple2Value: 13, HolePunchValue: 35", 0, 0},
    {"ZFoldValue: 39, Staple2Value: 13, HolePunchValue: 32", 2, 0},
};

TEST(FinishedSet, LiesWithItsZFoldAsWithItsStaples)
{
    for (const auto& row : LiftedCases) {
        for (const bool isLandscape : {false, true}) {
            const auto marks = Marks(row.finishing + std::string(", Options: 50"), isLandscape);
            EXPECT_EQ(marks.folds.areFlat, isLandscape) << row.finishing;
            EXPECT_EQ(marks.staples.size(), row.staples) << row.finishing;
            EXPECT_EQ(marks.holes.size(), row.holes) << row.finishing;
        }
    }
}

struct BookletCase {
    const char* name;
    const char* finishing;
    bool isBooklet;
    bool isFolded;
    std::size_t staples;
};

// clang-format off
constexpr BookletCase BookletCases[] = {
    {"folded",                   "Options: 24, BookletFoldStaple: 7",                      true,  true,  0},
    {"folded and stapled",       "Options: 24, BookletFoldStaple: 8",                      true,  true,  2},
    {"signature booklet",        "Options: 3",                                             true,  true,  2},
    {"the layout's own folding", "BookletFoldStaple: 8, BookletLayout: true",              true,  true,  2},
    {"layout without folding",   "BookletLayout: true",                                    true,  false, 0},
    {"another family counts",    "Options: 1, BookletFoldStaple: 8, BookletLayout: true",  true,  false, 0},
    {"no booklet",               "",                                                       false, false, 0},
    {"no document's folding",    "Options: 24, BookletFoldStaple: 9, BookletLayout: true", true,  false, 0},
};
// clang-format on

TEST(FinishedSet, IsABookletByFinishingOrLayout)
{
    for (const auto& row : BookletCases) {
        const FinishingMarks marks = Marks(row.finishing);
        EXPECT_EQ(marks.isBooklet, row.isBooklet) << row.name;
        EXPECT_EQ(!marks.folds.points.empty(), row.isFolded) << row.name;
        EXPECT_EQ(marks.staples.size(), row.staples) << row.name;
    }
}

TEST(FinishedSet, IsBoundAtOneEdge)
{
    using enum SheetEdge;
    EXPECT_EQ(Marks("Options: 14, BindValue: 15").binding, Left);
    EXPECT_EQ(Marks("Options: 14, BindValue: 15", true).binding, Top);
    EXPECT_EQ(Marks("Options: 14, BindValue: 16").binding, Right);
    EXPECT_EQ(Marks("Options: 14, BindValue: 16", true).binding, Bottom);
    EXPECT_EQ(Marks("Options: 9, BindValue: 16", true).binding, None);
}

TEST(FinishedSet, IsToldInWords)
{
    FinishedSet set = SetWith("Options: 9, Staple2Value: 10, Offset: 3", true);
    set.paperColor = 2;
    set.sides = 3;
    EXPECT_EQ(DescribeFinishedSet(set, BuiltBundle()),
              "Blue\nLandscape\n2-Sided, Flip on Short Edge\n2 staples, left or top\n"
              "Offset: Each set\n");
    set = SetWith("Options: 30, HolePunchValue: 32");
    set.paperColor = 10;
    set.ownColor = "Böck red";
    EXPECT_EQ(DescribeFinishedSet(set, BuiltBundle()),
              "Böck red\nPortrait\n1-Sided\nHole punch, left or top\nOffset: Printer Default\n"
              "3 Holes\n");
    set = SetWith("BookletFoldStaple: 8, BookletLayout: true");
    EXPECT_EQ(DescribeFinishedSet(set, BuiltBundle()),
              "Portrait\n1-Sided\nBooklet, folded and stapled\nPrinter Default\nBooklet layout\n"
              "Offset: Printer Default\n");
    EXPECT_EQ(DescribeFinishedSet(FinishedSet(), BuiltBundle()),
              "Portrait\n1-Sided\nPrinter Default\nOffset: Printer Default\n");
}

} // namespace
} // namespace tarvo
