#pragma once

#include "tpif/TPIFImportFeatures.h"

namespace tarvo {

/// Reads a medium, the inverse of WriteTPifMedia: of the job, a cover, an insert or a page.
class TPIFStockReader {
public:
    explicit TPIFStockReader(const TPIFImportFeatures& features);

    /// @param key  of the stock, as an observer is told it
    /// @return a stock's dictionary, empty when the group says nothing of its medium. A type that
    /// implies a weight, holes or a coating comes back as the plain one with these beside it.
    CFDictionary read(const TPIFImportGroup& group, std::string_view key) const;

private:
    void readType(const TPIFImportGroup& group, TPIFImportTarget& stock) const;
    void readOtherType(const TPIFImportGroup& group, TPIFImportTarget& stock, bool isDecided) const;
    void readColor(const TPIFImportGroup& group, TPIFImportTarget& stock) const;
    void readPunched(const TPIFImportGroup& group, TPIFImportTarget& stock) const;
    void readSize(const TPIFImportGroup& group, TPIFImportTarget& stock,
                  std::optional<std::int32_t> type) const;
    void readCoating(const TPIFImportGroup& group, TPIFImportTarget& stock) const;
    std::optional<std::int32_t> coatingOf(const TPIFImportGroup& group, std::size_t side) const;

    const TPIFFeatureReader& weight_;
    const TPIFFeatureReader& grain_;
    const TPIFFeatureReader& finish_;
    const TPIFFeatureReader& color_;
    const TPIFFeatureReader& type_;
    const TPIFFeatureReader& prePrinted_;
    const TPIFFeatureReader& recycled_;
    const TPIFFeatureReader& orderCount_;
    const TPIFFeatureReader& description_;
    const TPIFFeatureReader& size_;
    const TPIFFeatureReader& holeCount_;
    const TPIFFeatureReader& sidesCoated_;
    const TPIFFeatureReader& coating_;
};

} // namespace tarvo
