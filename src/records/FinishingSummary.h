#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

class CFBundle;
class CFDictionary;

/// What a job ticket says of its finishing. A position is 0 while its family is not chosen.
struct FinishingChoice {
    FinishingChoice() = default;
    /// A key absent or of another type keeps the default.
    explicit FinishingChoice(const CFDictionary& ticket);
    bool operator==(const FinishingChoice&) const = default;

    std::int32_t option = 0; // the family
    std::int32_t oneStaple = 0;
    std::int32_t twoStaples = 0;
    std::int32_t centerStaple = 0;
    std::int32_t fold = 0; // of the simple and of the advanced folds
    std::int32_t bind = 0;
    std::int32_t punch = 0;
    std::int32_t holes = 4; // a value of HolePunchOptionsMap: three
    std::int32_t zFold = 0;
    std::int32_t bookletFold = 1; // neither of BookletFoldMap
    std::string customText;
    bool bookletLayout = false;
    std::int32_t slipSheet = 0;    // 2 means on
    std::int32_t offset = 0;       // a value of OffsetMap, or 0
    std::int32_t offsetSubset = 0; // other than 0: subsets have a number of pages
    std::int32_t pagesPerSubset = 0;
};

/// Whether the family, or a part of a combined one, makes holes, so that their number counts.
bool IsPunched(const FinishingChoice& choice);

/// Ticket keys of what the chosen family, or each part of a combined one, needs and the choice
/// lacks or has no word for.
std::vector<std::string_view> MissingFinishingKeys(const FinishingChoice& choice);

/// Ticket keys of the positions that are set and do not count: those of other families, and staples
/// beside those of the first family that is set.
std::vector<std::string_view> UnusedFinishingKeys(const FinishingChoice& choice);

/// The finishing in words, a line for each part: the family with its position, booklet layout, slip
/// sheets, offset. Every line ends with a line feed, the last one as well. Of a combined family a
/// part whose position is unknown leaves an empty line.
std::string CreateFinishingString(const FinishingChoice& choice, const CFBundle& bundle);

} // namespace tarvo
