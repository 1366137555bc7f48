#pragma once

#include "tpif/TPIFImportFeatures.h"

#include <vector>

namespace tarvo {

/// Reads the full-colour options of the job or of a page.
class TPIFFullColorImport {
public:
    explicit TPIFFullColorImport(const TPIFImportFeatures& features);

    /// @param key  of the options, as an observer is told it
    /// @return an empty dictionary when the group has none
    CFDictionary read(const TPIFImportGroup& group, std::string_view key) const;

private:
    struct Step {
        const TPIFFeatureReader* feature;
        std::string_view key;
        bool isOfCast; // in the dictionary of the colour cast
    };

    void readDestination(const TPIFImportGroup& group, TPIFImportTarget& options) const;

    std::vector<Step> steps_;
    const TPIFFeatureReader& front_;
    const TPIFFeatureReader& back_;
};

/// Reads the highlight colour options.
/// @return an empty dictionary when the group has none
CFDictionary ReadHighlightColor(const TPIFImportFeatures& features, const TPIFImportGroup& group);

} // namespace tarvo
