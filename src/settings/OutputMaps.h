#pragma once

#include "platform/cf/CFPropertyList.h"
#include "settings/SettingMap.h"

namespace tarvo {

/// The printer finds the tray.
inline constexpr std::int32_t AutoOutputDest = 1;

// The trays of each output device; every next one has those before it.
inline constexpr SettingMap OutputDestOCTMap[] = {
    {"PrinterDefault", UnsetValue,     0},
    {"Auto",           AutoOutputDest, 0},
    {"Top Tray",       3,              0},
    {"Main Tray",      4,              0},
    {nullptr,          0,              0},
};

inline constexpr const auto& OutputDestLCSSMap = OutputDestOCTMap;

inline constexpr SettingMap OutputDestHCSSMap[] = {
    {"PrinterDefault", UnsetValue,     0},
    {"Auto",           AutoOutputDest, 0},
    {"Top Tray",       3,              0},
    {"Main Tray",      4,              0},
    {"Stacker 1",      5,              0},
    {"Stacker 2",      6,              0},
    {nullptr,          0,              0},
};

inline constexpr SettingMap OutputDestHCSS_BKMap[] = {
    {"PrinterDefault", UnsetValue,     0},
    {"Auto",           AutoOutputDest, 0},
    {"Top Tray",       3,              0},
    {"Main Tray",      4,              0},
    {"Stacker 1",      5,              0},
    {"Stacker 2",      6,              0},
    {"Booklet Tray",   7,              0},
    {nullptr,          0,              0},
};

} // namespace tarvo
