#pragma once

#include "tpif/TPIFImportFeatures.h"

#include <vector>

namespace tarvo {

/// Reads a feature of one element into an entry: a keyword or a number as the ticket's number, a
/// name as text. An empty name is no value.
/// @return whether an entry was stored
bool TPIFImportFeatureOneToOne(const TPIFFeatureReader& feature, const TPIFImportGroup& group,
                               TPIFImportTarget& target, std::string_view key);

/// Reads the features of one element that stand in the entries of the ticket, or of an exception
/// page.
class TPIFOneToOneImport {
public:
    explicit TPIFOneToOneImport(const TPIFImportFeatures& features);

    void readJob(const TPIFImportGroup& group, CFDictionary& result) const;
    void readOperation(const TPIFImportGroup& group, CFDictionary& result) const;
    void readPage(const TPIFImportGroup& group, CFDictionary& page) const;

private:
    struct Step {
        const TPIFFeatureReader* feature;
        std::string_view key;
    };

    static void Read(const std::vector<Step>& steps, const TPIFImportGroup& group,
                     CFDictionary& dictionary);

    std::vector<Step> job_;
    std::vector<Step> operation_;
    std::vector<Step> page_;
};

} // namespace tarvo
