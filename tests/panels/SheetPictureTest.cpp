#include "panels/finishing/SheetPicture.h"

#include "panels/finishing/TurnedCorner.h"
#include "support/FinishedSets.h"

#include <cairomm/surface.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>

namespace tarvo {
namespace {

using Finishing = FinishingChoice;

struct Picture {
    int width;
    int height;
    std::vector<std::uint32_t> pixels;

    std::uint32_t at(int x, int y) const
    {
        return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                      static_cast<std::size_t>(x)];
    }
};

// A square picture of that many points, each with that many pixels.
Picture PictureOf(const FinishedSet& set, int size, int scale)
{
    Picture picture = {size * scale, size * scale, {}};
    const auto surface =
        Cairo::ImageSurface::create(Cairo::FORMAT_ARGB32, picture.width, picture.height);
    const auto context = Cairo::Context::create(surface);
    context->scale(scale, scale);
    DrawFinishedSet(context, size, size, set);
    surface->flush();
    picture.pixels.resize(static_cast<std::size_t>(picture.width) *
                          static_cast<std::size_t>(picture.height));
    std::memcpy(picture.pixels.data(), surface->get_data(), picture.pixels.size() * 4);
    return picture;
}

struct Box {
    int left = 1'000'000, top = 1'000'000, right = -1, bottom = -1;
};

// The box round the points of the picture that differ from what is drawn there otherwise.
Box Difference(const Picture& picture, const Picture& other)
{
    Box box;
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            if (picture.at(x, y) != other.at(x, y)) {
                box.left = std::min(box.left, x);
                box.right = std::max(box.right, x);
                box.top = std::min(box.top, y);
                box.bottom = std::max(box.bottom, y);
            }
        }
    }
    return box;
}

Box PaperOf(const Picture& picture)
{
    return Difference(picture, {picture.width, picture.height,
                                std::vector<std::uint32_t>(picture.pixels.size())});
}

// In which thirds of the paper all that differs is: "top left", "left", "" for all over it.
std::string Words(const Box& marks, const Box& paper)
{
    const auto word = [](int low, int high, int from, int to, const char* first, const char* last) {
        const int third = (to - from) / 3;
        return std::string(high < from + third ? first : low > to - third ? last : "");
    };
    const std::string y = word(marks.top, marks.bottom, paper.top, paper.bottom, "top", "bottom");
    const std::string x = word(marks.left, marks.right, paper.left, paper.right, "left", "right");
    return y + (x.empty() || y.empty() ? "" : " ") + x;
}

// option, position, its value, where it is on an upright sheet, on a lying one
constexpr std::tuple<std::int32_t, std::int32_t Finishing::*, std::int32_t, const char*,
                     const char*>
    PlaceCases[] = {
        {4,  &Finishing::oneStaple,    5,  "top left",     "top right"  },
        {4,  &Finishing::oneStaple,    8,  "bottom right", "bottom left"},
        {9,  &Finishing::twoStaples,   13, "right",        "bottom"     },
        {25, &Finishing::centerStaple, 27, "top",          "right"      },
        {14, &Finishing::bind,         16, "right",        "bottom"     },
        {30, &Finishing::punch,        34, "bottom",       "left"       },
};

// Paper of a colour on which even a white rim is seen.
TEST(SheetPicture, HasTheFinishingWhereItsWordsSay)
{
    for (const auto& [option, position, value, upright, lying] : PlaceCases) {
        for (const bool isLandscape : {false, true}) {
            FinishedSet set = SetWith(option, position, value, isLandscape);
            set.paperColor = 9;
            FinishedSet plain = set;
            plain.finishing = {};
            for (const auto& [size, scale] : {
                     std::pair(48, 1), {60,  2},
                       {100, 1}
            }) {
                const Picture with = PictureOf(set, size, scale);
                const Picture without = PictureOf(plain, size, scale);
                const Box marks = Difference(with, without);
                ASSERT_GE(marks.right, 0) << value << " is not drawn";
                EXPECT_EQ(Words(marks, PaperOf(without)), isLandscape ? lying : upright)
                    << value << " at " << size << " x " << scale;
            }
        }
    }
}

TEST(SheetPicture, HasHolesThroughWhichOneSees)
{
    const FinishedSet set = SetWith(30, &Finishing::punch, 32);
    const Picture picture = PictureOf(set, 200, 1);
    const Box paper = PaperOf(picture);
    int holes = 0; // along the paper's left edge
    for (int x = paper.left + 4; x < paper.left + 20; ++x) {
        int inThisColumn = 0;
        for (int y = paper.top + 2; y < paper.bottom - 8; ++y) {
            inThisColumn += picture.at(x, y) == 0 && picture.at(x, y - 1) != 0 ? 1 : 0;
        }
        holes = std::max(holes, inThisColumn);
    }
    EXPECT_EQ(holes, 3);
}

TEST(SheetPicture, StaysInItsAreaAndDiffersForEachChoice)
{
    const std::tuple<std::int32_t, std::int32_t Finishing::*, std::vector<std::int32_t>>
        families[] = {
            {40, &Finishing::fold,        {41, 42, 43, 44, 45, 46, 48}}, // 47 looks as 38 does
            {36, &Finishing::zFold,       {38, 39}                    },
            {24, &Finishing::bookletFold, {7, 8}                      },
            {0,  &Finishing::offset,      {2, 3, 4, 5}                },
            {18, &Finishing::fold,        {20}                        },
            {0,  &Finishing::slipSheet,   {2}                         },
            {22, &Finishing::fold,        {0}                         },
    };
    std::vector<FinishedSet> sets(5);
    sets[1].paperColor = 2;
    sets[2].sides = 2;
    sets[3].sides = 3;
    sets[4].isLandscape = true;
    for (const auto& [option, position, values] : families) {
        for (const std::int32_t value : values) {
            sets.push_back(SetWith(option, position, value));
        }
    }
    std::vector<std::vector<std::uint32_t>> drawn;
    for (const FinishedSet& set : sets) {
        const Picture picture = PictureOf(set, 64, 2);
        const Box seen = PaperOf(picture);
        EXPECT_TRUE(seen.left > 0 && seen.top > 0 && seen.right < 127 && seen.bottom < 127)
            << set.finishing.option;
        EXPECT_GT(std::max(seen.right - seen.left, seen.bottom - seen.top), 100);
        for (const auto& other : drawn) {
            EXPECT_NE(picture.pixels, other) << drawn.size();
        }
        drawn.push_back(picture.pixels);
    }
}

// A line of one pixel at scale 1, of two at scale 2, with nothing blurred beside it.
TEST(SheetPicture, HasSharpEdges)
{
    FinishedSet set;
    set.paperColor = 1;
    for (const int scale : {1, 2, 3}) {
        const Picture picture = PictureOf(set, 90, scale);
        const int y = picture.height / 2;
        int x = 0;
        while (picture.at(x, y) == 0) {
            ++x;
        }
        const std::uint32_t line = picture.at(x, y);
        EXPECT_EQ(line >> 24, 0xffU) << "nothing half covered";
        for (int pixel = 0; pixel < scale; ++pixel) {
            EXPECT_EQ(picture.at(x + pixel, y), line);
        }
        EXPECT_EQ(picture.at(x + scale, y), 0xffffffffU) << scale;
    }
}

// Whether a place is on the part of the sheet that the corner leaves.
bool IsInTriangle(SheetPlace place, const TurnedCorner& turned)
{
    const double along =
        std::abs((place.x - turned.corner.x) / (turned.onFlat.x - turned.corner.x));
    const double across =
        std::abs((place.y - turned.corner.y) / (turned.onUpright.y - turned.corner.y));
    return along + across <= 1;
}

bool IsInTheWay(const FinishingMarks& marks, const TurnedCorner& turned)
{
    const auto isIn = [&turned](SheetPlace place) { return IsInTriangle(place, turned); };
    const bool isTaped =
        marks.binding == (turned.corner.x == 0 ? SheetEdge::Left : SheetEdge::Right) ||
        marks.binding == (turned.corner.y == 0 ? SheetEdge::Top : SheetEdge::Bottom);
    return isTaped || std::any_of(marks.holes.begin(), marks.holes.end(), isIn) ||
           std::any_of(marks.staples.begin(), marks.staples.end(),
                       [isIn](const StapleMark& staple) { return isIn(staple.place); });
}

// Every staple with every row of holes, and with none.
std::vector<FinishedSet> StapledAndPunchedSets()
{
    std::vector<FinishedSet> sets = {SetWith(14, &Finishing::bind, 15),
                                     SetWith(14, &Finishing::bind, 16)};
    for (const auto& [family, first] : {
             std::pair(&Finishing::oneStaple, 5),
             {&Finishing::twoStaples,   10},
             {&Finishing::centerStaple, 26},
    }) {
        for (std::int32_t staple = first; staple < first + 4; ++staple) {
            for (const std::int32_t punch : {0, 32, 33, 34, 35}) {
                for (const std::int32_t holes : {3, 4, 5}) {
                    sets.push_back(SetWith(49, family, staple));
                    sets.back().finishing.punch = punch;
                    sets.back().finishing.holes = holes;
                }
            }
        }
    }
    return sets;
}

TEST(SheetPicture, TurnsACornerThatHasNothingOfTheFinishing)
{
    for (FinishedSet set : StapledAndPunchedSets()) {
        for (const std::int32_t sides : {2, 3}) {
            for (const bool isLandscape : {false, true}) {
                set.sides = sides;
                set.isLandscape = isLandscape;
                const FinishingMarks marks = MarksOf(set);
                const auto turned = CornerToTurn(set, marks);
                const bool isAlone = set.finishing.punch == 0;
                EXPECT_TRUE(turned || !isAlone) << "one finishing leaves a corner";
                EXPECT_FALSE(turned && IsInTheWay(marks, *turned))
                    << set.finishing.oneStaple << " " << set.finishing.twoStaples << " "
                    << set.finishing.punch << ", sides " << sides;
            }
        }
    }
}

TEST(SheetPicture, IsNothingWhereThereIsNoRoom)
{
    const auto surface = Cairo::ImageSurface::create(Cairo::FORMAT_ARGB32, 10, 10);
    const auto context = Cairo::Context::create(surface);
    for (const double size : {-5.0, 0.0, 1.0, 8.0, 9.0}) {
        DrawFinishedSet(context, size, 40, SetWith(51, &Finishing::zFold, 38));
        EXPECT_EQ(cairo_status(context->cobj()), CAIRO_STATUS_SUCCESS) << size;
    }
}

} // namespace
} // namespace tarvo
