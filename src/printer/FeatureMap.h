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

// The features of a printer that has none.
inline constexpr InstalledFeatureMap featureMap[] = {
    {nullptr, nullptr, nullptr, nullptr, 0},
};

} // namespace tarvo
