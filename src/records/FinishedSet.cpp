#include "records/FinishedSet.h"

#include "platform/bundle/CFBundle.h"
#include "records/StockKeys.h"
#include "settings/FinishingMaps.h"
#include "settings/JobMaps.h"
#include "settings/StockMaps.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tarvo {
namespace {

namespace Family = FinishingFamily;

// Positions are described for upright paper. On paper that lies, the reader has turned it to the
// right: what was at the left is at the top, what was at the top left is at the top right.
SheetPlace Turned(SheetPlace place)
{
    return {1 - place.y, place.x};
}

constexpr double QuarterTurn = 90;

// Distances from an edge, in parts of the width of upright paper.
constexpr double StapleInset = 0.06;
constexpr double CornerInset = 0.09;
constexpr double HoleInset = 0.115;
constexpr double WidthOfHeight = 1 / PageProportion;

// A place at the side that has this number in TwoStaplesMap, CenterStapleMap and PunchMap.
SheetPlace AtSide(std::int32_t side, double inset, double along)
{
    switch (side) {
    case 1:
        return {inset, along};
    case 2:
        return {along, inset * WidthOfHeight};
    case 3:
        return {along, 1 - inset * WidthOfHeight};
    default:
        return {1 - inset, along};
    }
}

bool IsUprightSide(std::int32_t side)
{
    return side == 1 || side == 4;
}

struct CornerRow {
    std::int32_t position; // of OneStapleMap
    bool isRight;
    bool isBottom;
};

constexpr CornerRow CornerMap[] = {
    {5, false, false},
    {6, false, true },
    {7, true,  false},
    {8, true,  true },
};

void AddCornerStaple(FinishingMarks& marks, std::int32_t position)
{
    for (const CornerRow& row : CornerMap) {
        if (row.position == position) {
            const double y = CornerInset * WidthOfHeight;
            const SheetPlace place = {row.isRight ? 1 - CornerInset : CornerInset,
                                      row.isBottom ? 1 - y : y};
            marks.staples.push_back({place, row.isRight == row.isBottom ? -45.0 : 45.0});
        }
    }
}

void AddSideStaples(FinishingMarks& marks, std::int32_t side, std::initializer_list<double> along)
{
    if (side < 1) { // a position that no side has
        return;
    }
    for (const double each : along) {
        marks.staples.push_back(
            {AtSide(side, StapleInset, each), IsUprightSide(side) ? QuarterTurn : 0});
    }
}

void AddStaples(FinishingMarks& marks, const FinishingChoice& choice)
{
    AddCornerStaple(marks, choice.oneStaple);
    AddSideStaples(marks, TicketToUI(TwoStaplesMap, choice.twoStaples), {0.25, 0.75});
    AddSideStaples(marks, TicketToUI(CenterStapleMap, choice.centerStaple), {0.5});
}

// Where the holes are along their side, in parts of it. On the long side of A4 they are 80 mm apart
// in a row of two or four, 108 mm in one of three.
std::vector<double> HolePlaces(std::int32_t count)
{
    switch (count) {
    case 3:
        return {0.365, 0.635};
    case 5:
        return {0.095, 0.365, 0.635, 0.905};
    default:
        return {0.14, 0.5, 0.86};
    }
}

void AddHoles(FinishingMarks& marks, const FinishingChoice& choice)
{
    const std::int32_t side = TicketToUI(PunchMap, choice.punch);
    if (side < 1) {
        return;
    }
    for (const double along : HolePlaces(choice.holes)) {
        marks.holes.push_back(AtSide(side, HoleInset, along));
    }
}

SheetEdge BindingEdge(const FinishedSet& set)
{
    switch (set.finishing.bind) {
    case 15:
        return set.isLandscape ? SheetEdge::Top : SheetEdge::Left;
    case 16:
        return set.isLandscape ? SheetEdge::Bottom : SheetEdge::Right;
    default:
        return SheetEdge::None;
    }
}

using FoldPoints = std::vector<FoldPoint>;

// Half opened, so that one sees which way they go. Every panel is as long as on the spread sheet.
const FoldPoints HalfFold = {
    {0,   0.11, 0.31},
    {0.5, 0.5,  0   },
    {1,   0.89, 0.31},
};
const FoldPoints CFold = {
    {0,       0.11, 0.25},
    {1.0 / 3, 0.33, 0   },
    {2.0 / 3, 0.67, 0   },
    {1,       0.46, 0.26},
};
const FoldPoints ThreePartZFold = {
    {0,       0.1,  0.2},
    {1.0 / 3, 0.37, 0  },
    {2.0 / 3, 0.63, 0.2},
    {1,       0.9,  0  },
};
// The half away from the binding is folded back and out again, so that it can be opened.
const FoldPoints ZFoldFromLeft = {
    {0,    0,    0   },
    {0.5,  0.5,  0   },
    {0.75, 0.28, 0.12},
    {1,    0.49, 0.26},
};

FoldPoints Opposite(FoldPoints points)
{
    for (FoldPoint& point : points) {
        point.height = -point.height;
    }
    return points;
}

FoldPoints Mirrored(FoldPoints points)
{
    for (FoldPoint& point : points) {
        point = {1 - point.along, 1 - point.place, point.height};
    }
    std::reverse(points.begin(), points.end());
    return points;
}

// The print is on the side that faces the reader; where it is to be outside, folds go to the back.
FoldPoints PointsOfFold(std::int32_t fold)
{
    switch (fold) {
    case 19:
    case 45:
        return CFold;
    case 46:
        return Opposite(CFold);
    case 20:
    case 47:
        return ThreePartZFold;
    case 48:
        return Opposite(ThreePartZFold);
    case 41:
    case 43:
        return HalfFold;
    case 42:
    case 44:
        return Opposite(HalfFold);
    default:
        return {};
    }
}

bool IsTogether(std::int32_t fold)
{
    return fold == 43 || fold == 44;
}

void AddFolds(FinishingMarks& marks, const FinishedSet& set)
{
    const FinishingChoice& choice = set.finishing;
    if (choice.zFold == 38 || choice.zFold == 39) {
        marks.folds = {choice.zFold == 38 ? ZFoldFromLeft : Mirrored(ZFoldFromLeft),
                       set.isLandscape, false};
    }
    if (const FoldPoints points = PointsOfFold(choice.fold); !points.empty()) {
        marks.folds = {points, !set.isLandscape, !IsTogether(choice.fold)};
    }
}

// A booklet's sheet has its fold between the pages, and the staples on the fold.
void MakeBooklet(FinishingMarks& marks, bool isStapled)
{
    marks.isBooklet = true;
    marks.folds = {HalfFold, false, false};
    if (isStapled) {
        marks.staples = {
            {{0.5, 0.3}, QuarterTurn},
            {{0.5, 0.7}, QuarterTurn}
        };
    }
}

bool IsBooklet(const FinishingChoice& choice)
{
    return choice.option == Family::SignatureBooklet || FoldsBooklet(choice);
}

void Turn(FinishingMarks& marks)
{
    for (StapleMark& staple : marks.staples) {
        staple = {Turned(staple.place), staple.degrees + QuarterTurn};
    }
    for (SheetPlace& hole : marks.holes) {
        hole = Turned(hole);
    }
}

// Staples and holes where the sheet lies on itself would be seen from behind or on edge; so would
// the half of one that is on the crease, which the lifted part covers.
void LeaveOutLifted(FinishingMarks& marks)
{
    constexpr double Reach = 0.03; // half a staple, in parts of the sheet
    const auto isLifted = [&folds = marks.folds](SheetPlace place) {
        const double along = folds.areFlat ? place.y : place.x;
        return PlaceOnFolds(folds.points, along - Reach).height != 0 ||
               PlaceOnFolds(folds.points, along + Reach).height != 0;
    };
    std::erase_if(marks.staples, [&](const StapleMark& staple) { return isLifted(staple.place); });
    std::erase_if(marks.holes, isLifted);
}

std::string Line(const CFBundle& bundle, const SettingMap* map, std::int32_t value)
{
    const char* key = LocalizedKeyForTicketValue(map, value);
    return key == nullptr ? "" : bundle.localizedString(key) + "\n";
}

const char* OrientationKey(bool isLandscape)
{
    return isLandscape ? "Landscape" : "Portrait";
}

std::string ColorLine(const FinishedSet& set, const CFBundle& bundle)
{
    if (set.paperColor == CustomStockColor && !set.ownColor.empty()) {
        return set.ownColor + "\n";
    }
    return set.paperColor == UnsetValue ? "" : Line(bundle, StockColorMap, set.paperColor);
}

// As many as the picture has.
std::string HolesLine(const FinishingChoice& choice, const CFBundle& bundle)
{
    if (!IsPunched(choice) || TicketToUI(PunchMap, choice.punch) < 1) {
        return "";
    }
    const bool isKnown = TicketToUI(HolePunchOptionsMap, choice.holes) > 0;
    return Line(bundle, HolePunchOptionsMap, isKnown ? choice.holes : DefaultHoles);
}

} // namespace

FinishedSet WithFinishing(FinishedSet set, FinishingChoice finishing)
{
    set.finishing = std::move(finishing);
    return set;
}

FinishingMarks MarksOf(const FinishedSet& set)
{
    FinishedSet used = set;
    used.finishing = WithoutUnusedPositions(set.finishing);
    used.finishing.bookletFold = set.finishing.bookletFold;
    FinishingMarks marks;
    if (IsBooklet(used.finishing)) {
        constexpr std::int32_t FoldAndStaple = 8;
        MakeBooklet(marks, used.finishing.option == Family::SignatureBooklet ||
                               used.finishing.bookletFold == FoldAndStaple);
        return marks;
    }
    AddStaples(marks, used.finishing);
    AddHoles(marks, used.finishing);
    if (set.isLandscape) {
        Turn(marks);
    }
    marks.binding = BindingEdge(used);
    AddFolds(marks, used);
    LeaveOutLifted(marks);
    marks.isBooklet = set.finishing.bookletLayout;
    return marks;
}

FoldedPlace PlaceOnFolds(const std::vector<FoldPoint>& points, double along)
{
    if (points.size() < 2) {
        return {along, 0};
    }
    auto end = std::next(points.begin());
    while (along > end->along && std::next(end) != points.end()) {
        ++end;
    }
    const FoldPoint& from = *std::prev(end);
    const double part = (along - from.along) / (end->along - from.along);
    return {from.place + part * (end->place - from.place),
            from.height + part * (end->height - from.height)};
}

std::string DescribeFinishedSet(const FinishedSet& set, const CFBundle& bundle)
{
    std::string lines = ColorLine(set, bundle);
    lines += bundle.localizedString(OrientationKey(set.isLandscape)) + "\n";
    lines += Line(bundle, DuplexMap, set.sides);
    if (set.finishing.option == Family::PrinterDefault) { // else the family tells
        lines += Line(bundle, BookletFoldMap, set.finishing.bookletFold);
    }
    lines += CreateFinishingString(set.finishing, bundle);
    return lines + HolesLine(set.finishing, bundle);
}

} // namespace tarvo
