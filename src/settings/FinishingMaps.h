#pragma once

#include "platform/cf/CFPropertyList.h"
#include "settings/SettingMap.h"

namespace tarvo {

// Finishing families, then their positions. A number means the same in all these tables, but for
// the hole counts, which have numbers of their own.

// The families that each output device offers; every next one has those before it. The default row
// is stored as 0, for only with 0 does a booklet's own folding count.
inline constexpr SettingMap OutputStapleOCTMap[] = {
    {"PrinterDefault", UnsetValue, 0},
    {"None",           1,          0},
    {nullptr,          0,          0},
};

inline constexpr SettingMap OutputStapleLCSSMap[] = {
    {"PrinterDefault", UnsetValue, 0},
    {"None",           1,          0},
    {"1 Staple...",    4,          0},
    {"2 Staples...",   9,          0},
    {nullptr,          0,          0},
};

inline constexpr SettingMap OutputStapleHCSSMap[] = {
    {"PrinterDefault",        UnsetValue, 0},
    {"None",                  1,          0},
    {"1 Staple...",           4,          0},
    {"2 Staples...",          9,          0},
    {"Center Staple...",      25,         0},
    {"Multiple Finishing...", 49,         0},
    {nullptr,                 0,          0},
};

inline constexpr SettingMap PunchMap[] = {
    {"HolePunchLT", 32, 0},
    {"HolePunchTR", 33, 0},
    {"HolePunchBL", 34, 0},
    {"HolePunchRB", 35, 0},
    {nullptr,       0,  0},
};

// PunchMap for a job that may go without; "None" is stored as 0.
inline constexpr SettingMap PunchNoneMap[] = {
    {"None",        1,  0},
    {"HolePunchLT", 32, 0},
    {"HolePunchTR", 33, 0},
    {"HolePunchBL", 34, 0},
    {"HolePunchRB", 35, 0},
    {nullptr,       0,  0},
};

inline constexpr SettingMap HolePunchOptionsMap[] = {
    {"2 Holes", 3, 0},
    {"3 Holes", 4, 0},
    {"4 Holes", 5, 0},
    {nullptr,   0, 0},
};

inline constexpr SettingMap ZFoldMap[] = {
    {"ZFoldLeftBind",  38, 0},
    {"ZFoldRightBind", 39, 0},
    {nullptr,          0,  0},
};

inline constexpr SettingMap ComplexBookletFoldMap[] = {
    {"BiFoldSingleInside",    41, 0},
    {"BiFoldSingleOutside",   42, 0},
    {"BiFoldMultipleInside",  43, 0},
    {"BiFoldMultipleOutside", 44, 0},
    {nullptr,                 0,  0},
};

inline constexpr SettingMap ComplexFoldMap[] = {
    {"CTriFoldInside",  45, 0},
    {"CTriFoldOutside", 46, 0},
    {"ZTriFoldInside",  47, 0},
    {"ZTriFoldOutside", 48, 0},
    {nullptr,           0,  0},
};

} // namespace tarvo
