#pragma once

#include "records/FinishedSet.h"

#include <cairomm/context.h>

namespace tarvo {

/// Draws the finished set into the middle of an area, as large as it goes. The edges of paper that
/// is not folded lie between whole units of the context, so they are sharp where its scale is a
/// whole number. Paper stands out from a light and from a dark ground alike.
/// @param width, height  of the area, whose corner is the context's origin
void DrawFinishedSet(const Cairo::RefPtr<Cairo::Context>& context, double width, double height,
                     const FinishedSet& set);

} // namespace tarvo
