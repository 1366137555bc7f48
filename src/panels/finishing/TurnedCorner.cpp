#include "panels/finishing/TurnedCorner.h"

#include "settings/JobMaps.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tarvo {
namespace {

// Those at the right come first: there a reader turns the page.
constexpr SheetPlace Corners[] = {
    {1, 1},
    {1, 0},
    {0, 1},
    {0, 0},
};

// How far a mark reaches from its place, in parts of the short side.
constexpr double StapleReach = 0.1;
constexpr double HoleReach = 0.05;

TurnedCorner TurnedAt(SheetPlace corner, bool turnsUprightEdge)
{
    const double alongUpright = turnsUprightEdge ? 0.42 : 0.13;
    const double alongFlat = turnsUprightEdge ? 0.17 : 0.52;
    return {
        corner,
        {corner.x,                                  corner.y == 0 ? alongUpright : 1 - alongUpright},
        {corner.x == 0 ? alongFlat : 1 - alongFlat, corner.y                                       }
    };
}

// What the turned corner leaves and covers: a quadrangle on paper with a short side of 1.
class TurnedArea {
public:
    TurnedArea(const TurnedCorner& turned, bool isLandscape) : isLandscape_(isLandscape)
    {
        const PicturePoint corner = onPaper(turned.corner);
        const PicturePoint upright = onPaper(turned.onUpright);
        const PicturePoint flat = onPaper(turned.onFlat);
        points_ = {corner, flat, Mirrored(corner, upright, flat), upright};
    }

    bool isWithin(double reach, SheetPlace place) const
    {
        const PicturePoint point = onPaper(place);
        for (std::size_t side = 0; side < points_.size(); ++side) {
            const double inside = beside(side, points_[(side + 2) % points_.size()]);
            if (std::copysign(1, inside) * beside(side, point) < -reach) {
                return false;
            }
        }
        return true;
    }

private:
    PicturePoint onPaper(SheetPlace place) const
    {
        return {place.x * (isLandscape_ ? PageProportion : 1),
                place.y * (isLandscape_ ? 1 : PageProportion)};
    }
    // How far a point is from the line of a side; below 0 on one hand of it.
    double beside(std::size_t side, PicturePoint point) const
    {
        const PicturePoint from = points_[side];
        const PicturePoint to = points_[(side + 1) % points_.size()];
        const double dx = to.x - from.x;
        const double dy = to.y - from.y;
        return (dx * (point.y - from.y) - dy * (point.x - from.x)) / std::hypot(dx, dy);
    }

    bool isLandscape_;
    std::array<PicturePoint, 4> points_ = {};
};

bool HasTape(SheetPlace corner, SheetEdge binding)
{
    return (binding == SheetEdge::Left && corner.x == 0) ||
           (binding == SheetEdge::Right && corner.x == 1) ||
           (binding == SheetEdge::Top && corner.y == 0) ||
           (binding == SheetEdge::Bottom && corner.y == 1);
}

bool IsClear(const TurnedCorner& turned, const FinishingMarks& marks, bool isLandscape)
{
    const TurnedArea area(turned, isLandscape);
    return !HasTape(turned.corner, marks.binding) &&
           std::none_of(marks.staples.begin(), marks.staples.end(),
                        [&area](const StapleMark& staple) {
                            return area.isWithin(StapleReach, staple.place);
                        }) &&
           std::none_of(marks.holes.begin(), marks.holes.end(),
                        [&area](SheetPlace hole) { return area.isWithin(HoleReach, hole); });
}

} // namespace

std::optional<TurnedCorner> CornerToTurn(const FinishedSet& set, const FinishingMarks& marks)
{
    const bool turnsUprightEdge = (set.sides == TwoSidedLongEdge) != set.isLandscape;
    for (const SheetPlace corner : Corners) {
        const TurnedCorner turned = TurnedAt(corner, turnsUprightEdge);
        if (IsClear(turned, marks, set.isLandscape)) {
            return turned;
        }
    }
    return std::nullopt;
}

PicturePoint Mirrored(PicturePoint point, PicturePoint from, PicturePoint to)
{
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const double part = ((point.x - from.x) * dx + (point.y - from.y) * dy) / (dx * dx + dy * dy);
    return {2 * (from.x + part * dx) - point.x, 2 * (from.y + part * dy) - point.y};
}

} // namespace tarvo
