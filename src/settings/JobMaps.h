#pragma once

#include "platform/cf/CFPropertyList.h"
#include "settings/SettingMap.h"

namespace tarvo {

// Every printer has these; the types numbered between them appear where the printer offers them.
inline constexpr SettingMap JobTypeMap[] = {
    {"Normal",          1, 0},
    {"Save",            3, 0},
    {"BackgroundForms", 9, 0},
    {nullptr,           0, 0},
};

// Offered where the feature "JobType" says so; texts have the keywords' names.
inline constexpr SettingMap OptionalJobTypeMap[] = {
    {"Hold",         2, 0},
    {"SaveAndPrint", 4, 0},
    {"Fax",          5, 0},
    {"SecurePrint",  6, 0},
    {"DelayedPrint", 7, 0},
    {"SampleSet",    8, 0},
    {nullptr,        0, 0},
};

// The format in which a job is saved.
inline constexpr SettingMap JobFormatMap[] = {
    {"SinglePageTIFF", 1, 0},
    {"PDF",            3, 0},
    {nullptr,          0, 0},
};

// How a job uses the sides of its sheets.
inline constexpr std::int32_t OneSided = 1;
inline constexpr std::int32_t TwoSidedLongEdge = 2;
inline constexpr std::int32_t TwoSidedShortEdge = 3;
inline constexpr SettingMap DuplexMap[] = {
    {"Simplex",     1, 0},
    {"Duplex",      2, 0},
    {"DuplexShort", 3, 0},
    {nullptr,       0, 0},
};

// DuplexMap for an exception page, which may leave it to its job.
inline constexpr SettingMap PlexMap[] = {
    {"PrinterDefault", UnsetValue, 0},
    {"Simplex",        1,          0},
    {"Duplex",         2,          0},
    {"DuplexShort",    3,          0},
    {nullptr,          0,          0},
};

} // namespace tarvo
