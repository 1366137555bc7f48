#include "panels/finishing/SheetPicture.h"

#include "panels/finishing/TurnedCorner.h"

#include <cairomm/surface.h>
#include <gtest/gtest.h>

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

    void add(int x, int y)
    {
        left = std::min(left, x);
        right = std::max(right, x);
        top = std::min(top, y);
        bottom = std::max(bottom, y);
    }
    bool isEmpty() const { return right < 0; }
};

template <typename Differs>
Box Where(const Picture& picture, Differs differs)
{
    Box box;
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            if (differs(x, y)) {
                box.add(x, y);
            }
        }
    }
    return box;
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

FinishedSet SetWith(std::int32_t option, std::int32_t Finishing::*position, std::int32_t value,
                    bool isLandscape = false)
{
    FinishedSet set;
    set.finishing.option = option;
    set.finishing.*position = value;
    set.isLandscape = isLandscape;
    return set;
}

struct PlaceCase {
    std::int32_t option;
    std::int32_t Finishing::*position;
    std::int32_t value;
    const char* upright;
    const char* lying;
};

constexpr PlaceCase PlaceCases[] = {
    {4,  &Finishing::oneStaple,    5,  "top left",     "top right"   },
    {4,  &Finishing::oneStaple,    6,  "bottom left",  "top left"    },
    {4,  &Finishing::oneStaple,    7,  "top right",    "bottom right"},
    {4,  &Finishing::oneStaple,    8,  "bottom right", "bottom left" },
    {9,  &Finishing::twoStaples,   10, "left",         "top"         },
    {9,  &Finishing::twoStaples,   13, "right",        "bottom"      },
    {25, &Finishing::centerStaple, 27, "top",          "right"       },
    {14, &Finishing::bind,         16, "right",        "bottom"      },
    {30, &Finishing::punch,        34, "bottom",       "left"        },
};

// Paper of a colour on which even a white rim is seen.
TEST(SheetPicture, HasTheFinishingWhereItsWordsSay)
{
    for (const auto& row : PlaceCases) {
        for (const bool isLandscape : {false, true}) {
            FinishedSet set = SetWith(row.option, row.position, row.value, isLandscape);
            set.paperColor = 9;
            FinishedSet plain = set;
            plain.finishing = {};
            for (const auto& [size, scale] : {
                     std::pair(48, 1), {76,  1},
                       {76,  2},
                       {200, 3}
            }) {
                const Picture with = PictureOf(set, size, scale);
                const Picture without = PictureOf(plain, size, scale);
                const Box paper =
                    Where(without, [&](int x, int y) { return without.at(x, y) != 0; });
                const Box marks =
                    Where(with, [&](int x, int y) { return with.at(x, y) != without.at(x, y); });
                ASSERT_FALSE(marks.isEmpty()) << row.value;
                EXPECT_EQ(Words(marks, paper), isLandscape ? row.lying : row.upright)
                    << row.value << " at " << size << " x " << scale;
            }
        }
    }
}

TEST(SheetPicture, HasHolesThroughWhichOneSees)
{
    const FinishedSet set = SetWith(30, &Finishing::punch, 32);
    const Picture picture = PictureOf(set, 200, 1);
    const Box paper = Where(picture, [&](int x, int y) { return picture.at(x, y) != 0; });
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
    std::vector<FinishedSet> sets = {{}};
    for (std::int32_t value = 41; value <= 48; ++value) {
        if (value != 47) { // looks as a simple Z-fold does
            sets.push_back(SetWith(40, &Finishing::fold, value));
        }
    }
    for (std::int32_t value : {38, 39}) {
        sets.push_back(SetWith(36, &Finishing::zFold, value));
    }
    for (std::int32_t value : {7, 8}) {
        sets.push_back(SetWith(24, &Finishing::bookletFold, value));
    }
    for (std::int32_t value = 2; value <= 5; ++value) {
        sets.push_back(SetWith(0, &Finishing::offset, value));
    }
    sets.push_back(SetWith(18, &Finishing::fold, 20));
    sets.push_back(SetWith(0, &Finishing::slipSheet, 2));
    sets.push_back(SetWith(22, &Finishing::fold, 0));
    sets.push_back({{}, 2, 1, false});
    sets.push_back({{}, UnsetValue, 2, false});
    sets.push_back({{}, UnsetValue, 3, false});
    sets.push_back({{}, UnsetValue, 1, true});
    std::vector<std::vector<std::uint32_t>> drawn;
    for (const FinishedSet& set : sets) {
        const Picture picture = PictureOf(set, 64, 2);
        const Box seen = Where(picture, [&](int x, int y) { return picture.at(x, y) != 0; });
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

std::string FinishingInTheWay(const FinishingMarks& marks, const TurnedCorner& turned)
{
    std::string found;
    for (const StapleMark& staple : marks.staples) {
        found += IsInTriangle(staple.place, turned) ? "staple " : "";
    }
    for (const SheetPlace& hole : marks.holes) {
        found += IsInTriangle(hole, turned) ? "hole " : "";
    }
    const auto tape = [&marks](SheetEdge edge, double place, double end) {
        return marks.binding == edge && place == end ? "tape " : "";
    };
    return found + tape(SheetEdge::Left, turned.corner.x, 0) +
           tape(SheetEdge::Right, turned.corner.x, 1) + tape(SheetEdge::Top, turned.corner.y, 0) +
           tape(SheetEdge::Bottom, turned.corner.y, 1);
}

struct StaplePlace {
    std::int32_t Finishing::*family;
    std::int32_t first;
};

constexpr StaplePlace StaplePlaces[] = {
    {&Finishing::oneStaple,    5 },
    {&Finishing::twoStaples,   10},
    {&Finishing::centerStaple, 26},
};

// Every staple with every row of holes, and with none.
std::vector<FinishedSet> StapledAndPunchedSets()
{
    std::vector<FinishedSet> sets = {SetWith(14, &Finishing::bind, 15),
                                     SetWith(14, &Finishing::bind, 16)};
    for (const StaplePlace& row : StaplePlaces) {
        for (std::int32_t staple = row.first; staple < row.first + 4; ++staple) {
            for (const std::int32_t punch : {0, 32, 33, 34, 35}) {
                for (const std::int32_t holes : {3, 4, 5}) {
                    sets.push_back(SetWith(49, row.family, staple));
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
                EXPECT_EQ(turned ? FinishingInTheWay(marks, *turned) : "", "")
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
