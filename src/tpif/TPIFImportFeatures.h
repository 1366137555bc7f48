#pragma once

#include "tpif/TPIFFeatureReader.h"
#include "tpif/TPIFImportPaths.h"

#include <map>
#include <string_view>

namespace tarvo {

class FeatureDatabase;

/// The database's features as an import needs them. Made once, it serves any number of documents,
/// and several threads at a time.
class TPIFImportFeatures {
public:
    explicit TPIFImportFeatures(const FeatureDatabase& database);

    /// @return a reader that finds nothing for a feature that the database lacks, or has without
    /// the property that makes it part of documents
    const TPIFFeatureReader& named(std::string_view name) const;
    const TPIFImportPaths& paths() const { return paths_; }

    // Elements that belong to no feature.
    std::size_t saveDispositionSlot = 0;
    std::size_t formSaveSlot = 0;
    std::size_t insertAfterSlot = 0;
    std::size_t insertCountSlot = 0;
    std::size_t lowerBoundSlot = 0;
    std::size_t upperBoundSlot = 0;

private:
    void add(const TPIFFeature& feature, const CFDictionary& entry);
    void addPaths(const TPIFFeature& feature, TPIFFeatureReader& reader);
    void addOwnPaths();

    TPIFImportPaths paths_;
    std::map<std::string_view, TPIFFeatureReader> readers_; // by names of the table of features
};

/// Whether an exception page may have the feature for itself.
bool IsPageFeature(std::string_view name);

} // namespace tarvo
