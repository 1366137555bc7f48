#pragma once

#include "settings/SettingMap.h"

namespace tarvo {

inline constexpr SettingMap WatermarkOptionsMap[] = {
    {"WatermarkForeground", 2, 0},
    {"WatermarkBlend",      3, 0},
    {nullptr,               0, 0},
};

inline constexpr SettingMap WatermarkStringMap[] = {
    {"NoWatermark",           1, 0},
    {"DraftWatermark",        2, 0},
    {"ConfidentialWatermark", 3, 0},
    {"CopyWatermark",         4, 0},
    {nullptr,                 0, 0},
};

} // namespace tarvo
