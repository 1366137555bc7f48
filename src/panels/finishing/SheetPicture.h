#pragma once

#include "records/FinishedSet.h"

#include <cairomm/context.h>

namespace tarvo {

/// Draws the finished set into the middle of an area, as large as it goes. All is drawn with lines
/// and areas, so it is sharp at any scale of the context, and paper stands out from a light and
/// from a dark ground alike.
/// @param width, height  of the area, whose corner is the context's origin
void DrawFinishedSet(const Cairo::RefPtr<Cairo::Context>& context, double width, double height,
                     const FinishedSet& set);

} // namespace tarvo
