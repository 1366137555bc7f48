#pragma once

#include "tpif/TPIFImportFeatures.h"

#include <map>
#include <optional>
#include <set>
#include <string_view>

namespace tarvo {

/// Collects the values of a finishings set, one by one, and makes the ticket's entries of them: the
/// inverse of WriteTPifFinishing.
class TPIFFinishingImport {
public:
    explicit TPIFFinishingImport(const TPIFImportFeatures& features);

    /// Takes a value of the set. A value that is not known counts as absent.
    /// @param group  whose observer is told
    void add(const TPIFImportGroup& group, const TPIFImportNode& value);

    /// Stores all parts of the set, 0 where it has none, so that no part of a former choice stays
    /// in the ticket; nothing when no value was known.
    void store(CFDictionary& result) const;

    /// Tells the group's observer what became of the values.
    /// @param result  with the set stored and its family computed
    void tell(const TPIFImportGroup& group, const CFDictionary& result) const;

private:
    bool isBesideStapleOrZFold() const;
    void keep(const TPIFImportGroup& group, const TPIFImportNode& value,
              std::optional<TPIFImportNode>& kept);

    const TPIFFeatureReader& finishings_;
    CFDictionary parts_;                  // ticket key to choice
    std::set<std::string_view> keywords_; // borrowed from the feature
    bool hasTwice_ = false;
    // For an observer: the last value of each part, and the last that was said before.
    std::map<std::string_view, std::optional<TPIFImportNode>> lastOfParts_;
    std::optional<TPIFImportNode> repeated_;
};

/// Rebuilds the finishing family from the parts that the result holds; leaves a result without any
/// as it is.
void ComputeFinishingOptionKey(CFDictionary& result);

/// Collects the values of a job-offset set.
class TPIFOffsetImport {
public:
    explicit TPIFOffsetImport(const TPIFImportFeatures& features);

    void add(const TPIFImportGroup& group, const TPIFImportNode& value);
    /// Stores the offset and the pages of a subset, for which the group has an element.
    void store(const TPIFImportGroup& group, CFDictionary& result) const;

private:
    std::optional<std::int32_t> offset() const;

    const TPIFFeatureReader& offset_;
    const TPIFFeatureReader& pagesPerSubset_;
    std::map<std::int32_t, TPIFImportNode> members_; // by numbers of OffsetWords
};

} // namespace tarvo
