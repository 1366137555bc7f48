#pragma once

#include "tpif/TPIFImportColor.h"
#include "tpif/TPIFImportMedia.h"
#include "tpif/TPIFImportOneToOne.h"

namespace tarvo {

/// Reads covers, inserts and exception pages, each from the group of its elements.
class TPIFSpecialPagesImport {
public:
    explicit TPIFSpecialPagesImport(const TPIFImportFeatures& features);

    void addFrontCover(const TPIFImportGroup& group);
    void addBackCover(const TPIFImportGroup& group);
    /// Adds the insert to the list; one at a page that cannot be used is left out.
    void addInsert(const TPIFImportGroup& group);
    /// Adds the exception to the list; one with bounds that cannot be used is left out.
    void addPage(const TPIFImportGroup& group);

    /// Of both lists, with those that were left out.
    std::size_t count() const { return count_; }
    /// Keys of the next entry, as an observer is told them.
    std::string nextInsertKeys() const;
    std::string nextPageKeys() const;

    /// Stores what was added. What a back cover has printed depends on the front cover.
    /// @param group  whose observer is told that
    void store(const TPIFImportGroup& group, CFDictionary& result) &&;

private:
    std::optional<std::int32_t> coverType(const TPIFImportGroup& group) const;
    CFDictionary cover(const TPIFImportGroup& group, std::int32_t sides,
                       const TPIFImportNode* type) const;
    std::int32_t backSides() const;
    std::optional<std::int32_t> boundary(const TPIFFeatureReader& feature,
                                         const TPIFImportGroup& group, std::size_t slot) const;

    const TPIFImportFeatures& features_;
    TPIFStockReader stock_;
    TPIFOneToOneImport oneToOne_;
    TPIFFullColorImport fullColor_;
    const TPIFFeatureReader& coverType_;
    const TPIFFeatureReader& inserts_;
    const TPIFFeatureReader& exceptions_;
    const TPIFFeatureReader& imageShift_;
    std::optional<CFDictionary> front_;
    std::optional<CFDictionary> back_;
    bool isBackPrintedOnBack_ = false;
    std::optional<TPIFImportNode> backType_; // its element, then
    CFArray insertList_;
    CFArray exceptionList_;
    std::size_t count_ = 0;
};

} // namespace tarvo
