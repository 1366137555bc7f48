#pragma once

#include "records/FinishedSet.h"

#include <vector>

namespace tarvo {

struct PicturePoint {
    double x;
    double y;
};

/// A sheet of the pile, and how far it lies from the one on top, in parts of the short side of a
/// page.
struct PileSheet {
    double right;
    double down;
    bool isSlipSheet;
};

/// The sheets of the sets that the picture shows, the lowest first and the top one last.
std::vector<PileSheet> PileOf(const FinishedSet& set, const FinishingMarks& marks);

/// Where in an area the sheet on top is, as large as it goes in there with all of the pile.
class SheetGeometry {
public:
    /// @param width, height  of the area, whose corner is at 0, 0
    SheetGeometry(const FinishedSet& set, const FinishingMarks& marks,
                  const std::vector<PileSheet>& pile, double width, double height);

    PicturePoint at(SheetPlace place) const;
    /// The short side of a page.
    double shortSide() const { return scale_; }

private:
    // The same where the short side is 1 and the spread sheet's corner is at 0, 0.
    PicturePoint withoutScale(SheetPlace place) const;
    struct Box {
        double left, top, right, bottom;
    };
    Box boundsOf(const std::vector<PileSheet>& pile) const;

    SheetFolds folds_;
    double width_; // of the spread sheet, with a short side of 1
    double height_;
    double scale_ = 1;
    PicturePoint origin_ = {0, 0};
};

} // namespace tarvo
