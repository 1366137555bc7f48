#pragma once

#include "platform/cf/CFPropertyList.h"
#include "settings/SettingMap.h"

namespace tarvo {

inline constexpr SettingMap ResolutionMap[] = {
    {"PrinterDefault",       UnsetValue, 0},
    {"300 x 300 Resolution", 1,          0},
    {"600 x 600 Resolution", 2,          0},
    {nullptr,                0,          0},
};

// The panel shows some of these at one resolution only.
inline constexpr SettingMap HalftoneScreenMap[] = {
    {"PrinterDefault", UnsetValue, 0},
    {"53lpi",          15,         0},
    {"85lpi",          16,         0},
    {"42lpi",          29,         0},
    {"106lpi",         17,         0},
    {"71lpi",          18,         0},
    {"85+lpi",         19,         0},
    {"106+lpi",        20,         0},
    {"120lpi",         21,         0},
    {"141lpi",         22,         0},
    {nullptr,          0,          0},
};

inline constexpr SettingMap AntialiasingMap[] = {
    {"PrinterDefault", UnsetValue, 0},
    {"Off",            1,          0},
    {"On",             2,          0},
    {nullptr,          0,          0},
};

// How the shift of side 2 follows that of side 1.
inline constexpr SettingMap ImageShiftOptions2SidedMap[] = {
    {"PrinterDefault", UnsetValue, 0},
    {"Independent",    1,          0},
    {"MirrorX",        3,          0},
    {"MirrorY",        4,          0},
    {"MirrorBoth",     5,          0},
    {"MirrorXTandemY", 6,          0},
    {"MirrorYTandemX", 7,          0},
    {"TandemX",        8,          0},
    {"TandemY",        9,          0},
    {"TandemBoth",     10,         0},
    {nullptr,          0,          0},
};

inline constexpr SettingMap ImageShiftOptions1SidedMap[] = {
    {"PrinterDefault", UnsetValue, 0},
    {"Independent",    1,          0},
    {nullptr,          0,          0},
};

} // namespace tarvo
