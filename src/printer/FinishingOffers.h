#pragma once

#include "printer/InstallableOptions.h"
#include "printer/PPDKeywordInfo.h"

#include <cstdint>
#include <vector>

namespace tarvo {

/// A finishing family that a printer offers.
struct FinishingOffer {
    std::int32_t option;               // the family's ticket value
    const char* key;                   // of its text in the bundle
    std::vector<std::int32_t> choices; // ticket values within the family, each once
};

/// The families that follow from what is installed and from the fold options of the printer's
/// description, in the order of the finishing menu.
std::vector<FinishingOffer> FinishingOffers(const InstallableOptions& installed,
                                            const PPDKeywordInfos& foldOptions);

/// The offers with the family of an option among them in its place: without choices when the
/// printer does not offer it. Nothing is added for an option of no family. The combined families
/// are one offer, of the option of the first of them.
std::vector<FinishingOffer> WithFinishingFamily(std::vector<FinishingOffer> offers,
                                                std::int32_t option);

} // namespace tarvo
