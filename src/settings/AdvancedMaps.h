#pragma once

#include "settings/SettingMap.h"

namespace tarvo {

// Pop-up buttons of the advanced panel; the values are the positions in them. The order in which a
// booklet's pages are laid out is stored as it is.
inline constexpr SettingMap BookletLayoutOrderMap[] = {
    {"LayoutOrderReverse", 1, 0},
    {"LayoutOrderNormal",  2, 0},
    {nullptr,              0, 0},
};

// The ticket stores one less. Documents have words for 1 and 2: see TPIFRotationMap.
inline constexpr SettingMap RotateImageMap[] = {
    {"PrinterDefault", 1, 0},
    {"Rotate0",        2, 0},
    {"Rotate180",      3, 0},
    {nullptr,          0, 0},
};

} // namespace tarvo
