#pragma once

#include "settings/CombinedFinishing.h"
#include "settings/SettingMap.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

class CFBundle;
class CFDictionary;

/// Slip sheets between the sets, as a job ticket holds them; 0 is the printer's default.
inline constexpr std::int32_t SlipSheetsOff = 1;
inline constexpr std::int32_t SlipSheetsOn = 2;

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
    std::int32_t slipSheet = 0;    // SlipSheetsOff, SlipSheetsOn or 0
    std::int32_t offset = 0;       // a value of OffsetMap, or 0
    std::int32_t offsetSubset = 0; // other than 0: subsets have a number of pages
    std::int32_t pagesPerSubset = 0;
};

/// Whether the sheets are folded as a booklet: by the family of that name, and where no family is
/// chosen too.
bool FoldsBooklet(const FinishingChoice& choice);

/// Whether the family, or a part of a combined one, makes holes, so that their number counts.
bool IsPunched(const FinishingChoice& choice);

/// Ticket keys of what the chosen family, or each part of a combined one, needs and the choice
/// lacks or has no word for.
std::vector<std::string_view> MissingFinishingKeys(const FinishingChoice& choice);

/// Ticket keys of the positions that are set and do not count: those of other families, and staples
/// beside those of the first family that is set.
std::vector<std::string_view> UnusedFinishingKeys(const FinishingChoice& choice);

/// Where a choice has the position of a family; null for a family without one, a combined one and
/// a number of none.
std::int32_t FinishingChoice::*FinishingPosition(std::int32_t option);

/// The tables of a family's positions, in their order; none where there is no position.
std::vector<const SettingMap*> FinishingPositionMaps(std::int32_t option);

/// The choice with every position at 0 that does not count for its family, so that none of them is
/// printed instead. A family without holes has the usual number of them, and only a booklet or a
/// booklet layout keeps its folding.
FinishingChoice WithoutUnusedPositions(FinishingChoice choice);

/// The finishing in words, a line for each part: the family with its position, booklet layout, slip
/// sheets, offset. Every line ends with a line feed, the last one as well. Of a combined family a
/// part whose position is unknown leaves an empty line.
std::string CreateFinishingString(const FinishingChoice& choice, const CFBundle& bundle);

} // namespace tarvo
