#pragma once

#include "records/FinishedSet.h"

#include <cairomm/context.h>

namespace tarvo {

struct PictureColor {
    double red;
    double green;
    double blue;
};

/// What surrounds the picture: the colour of text in the window, so that outlines are seen in a
/// light and in a dark one.
struct PictureStyle {
    PictureColor line;
};

/// Draws the finished set into the middle of an area, as large as it goes. All is drawn with lines
/// and areas, so it is sharp at any scale of the context.
/// @param width, height  of the area, whose corner is the context's origin
void DrawFinishedSet(const Cairo::RefPtr<Cairo::Context>& context, double width, double height,
                     const FinishedSet& set, const PictureStyle& style);

} // namespace tarvo
