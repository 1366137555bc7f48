#pragma once

#include "panels/Panel.h"

namespace tarvo {

/// The panels of the pane in the order of its pop-up menu; null ends them. Loading ends, too, at
/// the first that cannot be had.
extern const PanelGetter PanelMap[];

} // namespace tarvo
