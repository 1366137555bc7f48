#include "panels/finishing/TurnedCorner.h"

#include "settings/JobMaps.h"

#include <algorithm>

namespace tarvo {
namespace {

// Where the finishing is: above 0 at the right and at the bottom, below at the left and at the top.
struct Weight {
    double right = 0;
    double bottom = 0;

    void add(SheetPlace place)
    {
        constexpr double Middle = 0.5;
        right += place.x - Middle;
        bottom += place.y - Middle;
    }
};

Weight WeightOf(const FinishingMarks& marks)
{
    Weight weight;
    for (const StapleMark& staple : marks.staples) {
        weight.add(staple.place);
    }
    std::for_each(marks.holes.begin(), marks.holes.end(),
                  [&weight](SheetPlace hole) { weight.add(hole); });
    weight.right += marks.binding == SheetEdge::Right ? 1 : 0;
    weight.bottom += marks.binding == SheetEdge::Bottom ? 1 : 0;
    return weight;
}

} // namespace

TurnedCorner CornerToTurn(const FinishedSet& set, const FinishingMarks& marks)
{
    constexpr double Little = 0.1; // of uneven places, which do not count
    const Weight weight = WeightOf(marks);
    const double x = weight.right > Little ? 0 : 1;
    const double y = weight.bottom > Little ? 0 : 1;
    const bool turnsUprightEdge = (set.sides == TwoSidedLongEdge) != set.isLandscape;
    const double alongUpright = turnsUprightEdge ? 0.42 : 0.13;
    const double alongFlat = turnsUprightEdge ? 0.17 : 0.52;
    return {
        {x,                                  y                                       },
        {x,                                  y == 0 ? alongUpright : 1 - alongUpright},
        {x == 0 ? alongFlat : 1 - alongFlat, y                                       }
    };
}

PicturePoint Mirrored(PicturePoint point, PicturePoint from, PicturePoint to)
{
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const double part = ((point.x - from.x) * dx + (point.y - from.y) * dy) / (dx * dx + dy * dy);
    return {2 * (from.x + part * dx) - point.x, 2 * (from.y + part * dy) - point.y};
}

} // namespace tarvo
