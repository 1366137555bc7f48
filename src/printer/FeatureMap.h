#pragma once

#include <cstdint>

namespace tarvo {

/// Something that a printer may have installed; a null feature ends a table.
struct InstalledFeatureMap {
    const char* feature;
    const char* mainKeyword;    // of the PPD; null when the feature needs no option
    const char* requiredOption; // the main keyword's choice that means "installed"
    const char* key;            // of its text in the bundle; may be null
    std::int32_t value;         // what the job ticket stores for it
};

// The finishing and output features of the family. A feature that is not here is not installed, so
// the finishing menu asks in vain for a staple in the bottom right corner.
inline constexpr InstalledFeatureMap InstalledFeatures[] = {
    {"SlipSheets",         nullptr,   nullptr, nullptr,     0},
    {"Offset",             nullptr,   nullptr, nullptr,     0},
    {"1StapleTL",          nullptr,   nullptr, nullptr,     0},
    {"1StapleTR",          nullptr,   nullptr, nullptr,     0},
    {"1StapleBL",          nullptr,   nullptr, nullptr,     0},
    {"2StaplesL",          nullptr,   nullptr, nullptr,     0},
    {"2StaplesT",          nullptr,   nullptr, nullptr,     0},
    {"2StaplesR",          nullptr,   nullptr, nullptr,     0},
    {"2StaplesB",          nullptr,   nullptr, nullptr,     0},
    {"BindLeft",           nullptr,   nullptr, nullptr,     0},
    {"BindRight",          nullptr,   nullptr, nullptr,     0},
    {"SimpleCatchTrayKey", nullptr,   nullptr, "Top Tray",  3},
    {"StackerTray1Key",    nullptr,   nullptr, "Main Tray", 4},
    {"Custom",             "Option1", "DFA",   nullptr,     0},
    {"SBM",                "Option2", "True",  nullptr,     0},
    {nullptr,              nullptr,   nullptr, nullptr,     0},
};

// The features of a printer that has none.
inline constexpr InstalledFeatureMap featureMap[] = {
    {nullptr, nullptr, nullptr, nullptr, 0},
};

} // namespace tarvo
