#pragma once

#include "platform/cf/CFPropertyList.h"
#include "records/FinishingSummary.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tarvo {

class CFBundle;

/// How long the long side of a page is, in parts of its short one.
inline constexpr double PageProportion = 1.4142;

/// All that decides how a finished set looks.
struct FinishedSet {
    bool operator==(const FinishedSet&) const = default;

    FinishingChoice finishing;
    std::int32_t paperColor = UnsetValue; // a value of StockColorMap
    std::int32_t sides = 1;               // a value of DuplexMap
    bool isLandscape = false;
    std::string ownColor = {}; // the name of a colour of the user's own
};

/// The set with another finishing.
FinishedSet WithFinishing(FinishedSet set, FinishingChoice finishing);

/// A place on the first sheet as it lies before the reader: from the left and from the top, as
/// parts of its width and height.
struct SheetPlace {
    bool operator==(const SheetPlace&) const = default;

    double x = 0;
    double y = 0;
};

struct StapleMark {
    SheetPlace place;
    double degrees; // clockwise from lying flat
};

enum class SheetEdge {
    None,
    Left,
    Top,
    Right,
    Bottom,
};

/// A point of a folded sheet, looked at along its folds. All are parts of the sheet's width, or of
/// its height where folds lie flat; between two points the sheet is even.
struct FoldPoint {
    double along;  // where it is on the spread sheet
    double place;  // where it comes to lie
    double height; // over the table; below 0: under the spread sheet
};

/// How the sheets of a set are folded.
struct SheetFolds {
    std::vector<FoldPoint> points; // empty: not at all
    bool areFlat = false;          // the folds lie across the sheet, else they stand
    bool isEachSheet = false;      // each sheet by itself, else all together
};

/// What finishing does to the sheets of a set.
struct FinishingMarks {
    std::vector<StapleMark> staples;
    std::vector<SheetPlace> holes;
    SheetEdge binding = SheetEdge::None;
    SheetFolds folds;
    bool isBooklet = false; // two pages beside each other on a sheet that is upright
};
FinishingMarks MarksOf(const FinishedSet& set);

/// Where a folded sheet has a place of the spread one.
struct FoldedPlace {
    double place;
    double height;
};
FoldedPlace PlaceOnFolds(const std::vector<FoldPoint>& points, double along);

/// The picture in words, for who cannot see it: the paper, its sides, how it lies and the
/// finishing with the folding of a booklet layout and the number of holes. A line each.
std::string DescribeFinishedSet(const FinishedSet& set, const CFBundle& bundle);

} // namespace tarvo
