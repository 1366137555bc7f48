#pragma once

#include "settings/SettingMap.h"

namespace tarvo {

// Which covers a job has.
inline constexpr SettingMap CoverOptionMap[] = {
    {"No Covers",        1, 0},
    {"Front Cover Only", 2, 0},
    {"Back Cover Only",  3, 0},
    {"Same Covers",      4, 0},
    {"Different Covers", 5, 0},
    {nullptr,            0, 0},
};

inline constexpr SettingMap CoverSidesImagedMap[] = {
    {"CoverBlankorPreprinted", 1, 0},
    {"CoverPrintSide1",        2, 0},
    {"CoverPrintSide2",        3, 0},
    {"CoverPrintSide1And2",    4, 0},
    {nullptr,                  0, 0},
};

} // namespace tarvo
