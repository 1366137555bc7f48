#include "panels/finishing/SheetGeometry.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace tarvo {
namespace {

constexpr double HeightOnPicture = 0.6;
constexpr double Margin = 0.04; // around the picture, of the area's smaller measure

struct SetPlace {
    double right;
    double down;
};

// Sets on top of each other, the top one first: how far each is moved aside.
constexpr double SetMove = 0.12;
constexpr double SubsetMove = 0.06;
constexpr double SetHeight = 0.07;
constexpr SetPlace OneSet[] = {
    {0, 0}
};
constexpr SetPlace StraightSets[] = {
    {0, 0            },
    {0, SetHeight    },
    {0, 2 * SetHeight},
};
constexpr SetPlace MovedSets[] = {
    {0,       0            },
    {SetMove, SetHeight    },
    {0,       2 * SetHeight},
};
constexpr SetPlace MovedSubsets[] = {
    {0,          0                },
    {SubsetMove, SetHeight / 2    },
    {0,          SetHeight        },
    {SubsetMove, 3 * SetHeight / 2},
};
constexpr SetPlace MovedSetsAndSubsets[] = {
    {0,                    0                },
    {SubsetMove,           SetHeight / 2    },
    {SetMove,              3 * SetHeight / 2},
    {SetMove + SubsetMove, 2 * SetHeight    },
};

std::span<const SetPlace> SetsOf(const FinishingChoice& finishing)
{
    switch (finishing.offset) {
    case 2:
        return StraightSets;
    case 3:
        return MovedSets;
    case 4:
        return MovedSubsets;
    case 5:
        return MovedSetsAndSubsets;
    default:
        break;
    }
    return finishing.slipSheet == SlipSheetsOn ? std::span<const SetPlace>(StraightSets) : OneSet;
}

// A sheet by itself, or some inside each other.
std::vector<PileSheet> FoldedPile(const SheetFolds& folds)
{
    if (folds.isEachSheet) {
        return {
            {0, 0, false}
        };
    }
    return {
        {0, 0.07,  false},
        {0, 0.035, false},
        {0, 0,     false}
    };
}

} // namespace

std::vector<PileSheet> PileOf(const FinishedSet& set, const FinishingMarks& marks)
{
    constexpr double SheetHeight = 0.03;
    constexpr double SlipSheetMove = 0.05;
    if (!marks.folds.points.empty()) {
        return FoldedPile(marks.folds);
    }
    std::vector<PileSheet> pile; // from the top
    for (const SetPlace& place : SetsOf(set.finishing)) {
        if (set.finishing.slipSheet == SlipSheetsOn && !pile.empty()) {
            pile.push_back({place.right + SlipSheetMove, place.down - SheetHeight / 2, true});
        }
        pile.push_back({place.right, place.down, false});
        pile.push_back({place.right, place.down + SheetHeight, false});
    }
    std::reverse(pile.begin(), pile.end());
    return pile;
}

SheetGeometry::SheetGeometry(const FinishedSet& set, const FinishingMarks& marks,
                             const std::vector<PileSheet>& pile, double width, double height)
    : folds_(marks.folds),
      width_(set.isLandscape ? PageProportion : 1),
      height_(set.isLandscape ? 1 : PageProportion)
{
    if (marks.isBooklet) {
        width_ *= 2; // two pages
    }
    const Box bounds = boundsOf(pile);
    const double margin = Margin * std::min(width, height) + 1;
    scale_ = std::min((width - 2 * margin) / (bounds.right - bounds.left),
                      (height - 2 * margin) / (bounds.bottom - bounds.top));
    scale_ = std::max(scale_, 0.0);
    origin_ = {std::round((width - scale_ * (bounds.left + bounds.right)) / 2),
               std::round((height - scale_ * (bounds.top + bounds.bottom)) / 2)};
}

PicturePoint SheetGeometry::withoutScale(SheetPlace place) const
{
    if (folds_.areFlat) {
        const FoldedPlace folded = PlaceOnFolds(folds_.points, place.y);
        return {place.x * width_ + folded.height * height_ * HeightOnPicture,
                folded.place * height_};
    }
    const FoldedPlace folded = PlaceOnFolds(folds_.points, place.x);
    return {folded.place * width_, place.y * height_ - folded.height * width_ * HeightOnPicture};
}

SheetGeometry::Box SheetGeometry::boundsOf(const std::vector<PileSheet>& pile) const
{
    std::vector<double> alongs = {0, 1};
    for (const FoldPoint& point : folds_.points) {
        alongs.push_back(point.along);
    }
    Box box = {1e9, 1e9, -1e9, -1e9};
    for (const PileSheet& sheet : pile) {
        for (const double along : alongs) {
            for (const double across : {0.0, 1.0}) {
                const PicturePoint point = withoutScale(folds_.areFlat ? SheetPlace{across, along}
                                                                       : SheetPlace{along, across});
                box.left = std::min(box.left, point.x + sheet.right);
                box.right = std::max(box.right, point.x + sheet.right);
                box.top = std::min(box.top, point.y + sheet.down);
                box.bottom = std::max(box.bottom, point.y + sheet.down);
            }
        }
    }
    return box;
}

PicturePoint SheetGeometry::at(SheetPlace place) const
{
    const PicturePoint point = withoutScale(place);
    return {origin_.x + scale_ * point.x, origin_.y + scale_ * point.y};
}

} // namespace tarvo
