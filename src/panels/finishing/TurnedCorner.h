#pragma once

#include "panels/finishing/SheetGeometry.h"

#include <optional>

namespace tarvo {

/// The corner of the top sheet that is turned up, so that one sees its other side.
struct TurnedCorner {
    SheetPlace corner;
    SheetPlace onUpright; // where the fold ends on the upright edge
    SheetPlace onFlat;
};

/// The ear is longer along the edge that the reader turns, and where it and the part of the sheet
/// that it leaves are clear of the finishing.
/// @return nullopt when no corner is
std::optional<TurnedCorner> CornerToTurn(const FinishedSet& set, const FinishingMarks& marks);

/// The point on the other side of the line from one point to another.
PicturePoint Mirrored(PicturePoint point, PicturePoint from, PicturePoint to);

} // namespace tarvo
