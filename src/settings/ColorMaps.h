#pragma once

#include "platform/cf/CFPropertyList.h"
#include "settings/SettingMap.h"

namespace tarvo {

inline constexpr SettingMap OutputColorMap[] = {
    {"PrinterDefault", UnsetValue, 0},
    {"Grayscale",      1,          0},
    {"Color",          2,          0},
    {nullptr,          0,          0},
};

inline constexpr SettingMap TrappingMap[] = {
    {"PrinterDefault", UnsetValue, 0},
    {"On",             1,          0},
    {"Off",            2,          0},
    {nullptr,          0,          0},
};

inline constexpr const auto& BlackOverprintMap = TrappingMap;

// Tone reproduction curve: the printer's or a named one.
inline constexpr SettingMap TRCMap[] = {
    {"PrinterDefault", UnsetValue, 0},
    {"Custom...",      1,          0},
    {nullptr,          0,          0},
};

inline constexpr const auto& GraySourceProfileMap = TRCMap;

// Kinds of profile that have a name.
inline constexpr std::int32_t CustomRGBProfile = 5;
inline constexpr std::int32_t CustomCMYKProfile = 3;
inline constexpr std::int32_t CustomDestinationProfile = 2;

// The keys of the first two do differ in "Mod" and "Mode".
inline constexpr SettingMap RGBSourceProfileMap[] = {
    {"PrinterDefault",                 UnsetValue,       0},
    {"Tarvo TrueHue Mod RGB",          1,                0},
    {"Tarvo TrueHue Mode RGB Gamma=1", 2,                0},
    {"Adobe RGB",                      6,                0},
    {"sRGB",                           4,                0},
    {"Custom...",                      CustomRGBProfile, 0},
    {nullptr,                          0,                0},
};

inline constexpr SettingMap CMYKSourceProfileMap[] = {
    {"PrinterDefault",          UnsetValue,        0},
    {"Native",                  1,                 0},
    {"Swop CMYK",               2,                 0},
    {"Swop Plus CMYK",          15,                0},
    {"Commercial CMYK",         14,                0},
    {"FOGRA Gloss Coated CMYK", 4,                 0},
    {"FOGRA Matte Coated CMYK", 5,                 0},
    {"FOGRA Uncoated CMYK",     6,                 0},
    {"Custom...",               CustomCMYKProfile, 0},
    {nullptr,                   0,                 0},
};

inline constexpr SettingMap DestinationProfileMap[] = {
    {"PrinterDefault",   UnsetValue,               0},
    {"System Specified", 1,                        0},
    {"Custom...",        CustomDestinationProfile, 0},
    {nullptr,            0,                        0},
};

inline constexpr SettingMap ObjectRenderingMap[] = {
    {"PrinterDefault",        UnsetValue, 0},
    {"Saturation",            1,          0},
    {"Relative Colorimetric", 2,          0},
    {"Absolute Colorimetric", 3,          0},
    {"Perceptual",            4,          0},
    {"Pure",                  5,          0},
    {"Automatic",             6,          0},
    {nullptr,                 0,          0},
};

// For the four tables of highlight colour tickets hold the place of the row, from 0, not its value.

inline constexpr SettingMap HighlightPrintingColorMap[] = {
    {"PrinterDefault",   UnsetValue, 0},
    {"RedHLColor",       1,          0},
    {"GreenHLColor",     2,          0},
    {"BlueHLColor",      3,          0},
    {"RoyalBlueHLColor", 4,          0},
    {"UseLoadedHLColor", 5,          0},
    {nullptr,            0,          0},
};

inline constexpr SettingMap HighlightMappingAlgorithmMap[] = {
    {"PrinterDefault",              UnsetValue, 0},
    {"AutomaticHLAlgorithm",        1,          0},
    {"PictorialHLAlgorithm",        2,          0},
    {"PresentationHLAlgorithm",     3,          0},
    {"ColorToHighlightHLAlgorithm", 4,          0},
    {"MonochromeHLAlgorithm",       5,          0},
    {nullptr,                       0,          0},
};

// What the printer does when another highlight colour is loaded than the job asks for.
inline constexpr SettingMap HighlightMismatchColorMap[] = {
    {"PrinterDefault", UnsetValue, 0},
    {"UseLoadedColor", 1,          0},
    {"CancelJob",      2,          0},
    {"HoldJob",        3,          0},
    {nullptr,          0,          0},
};

// The mapping colour that is mixed from components.
inline constexpr std::int32_t CustomHighlightMappingColor = 13;

inline constexpr SettingMap HighlightMappingColorMap[] = {
    {"PrinterDefault",          UnsetValue,                  0},
    {"RedHLMappingColor",       1,                           0},
    {"GreenHLMappingColor",     2,                           0},
    {"BlueHLMappingColor",      3,                           0},
    {"CyanHLMappingColor",      4,                           0},
    {"MagentaHLMappingColor",   5,                           0},
    {"YellowHLMappingColor",    6,                           0},
    {"CardinalHLMappingColor",  7,                           0},
    {"RoyalBlueHLMappingColor", 8,                           0},
    {"BlackHLMappingColor",     9,                           0},
    {"RubyHLMappingColor",      10,                          0},
    {"VioletHLMappingColor",    11,                          0},
    {"BrownHLMappingColor",     12,                          0},
    {"CustomHLMappingColor",    CustomHighlightMappingColor, 0},
    {nullptr,                   0,                           0},
};

} // namespace tarvo
