#include "panels/finishing/SheetPicture.h"

#include "panels/finishing/SheetGeometry.h"
#include "panels/finishing/SheetInks.h"
#include "panels/finishing/TurnedCorner.h"
#include "settings/FinishingMaps.h"
#include "settings/JobMaps.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

namespace tarvo {
namespace {

// An even part of the sheet between two folds.
struct PanelOfSheet {
    FoldPoint from;
    FoldPoint to;

    bool isFromBehind() const { return to.place < from.place; }
    double height() const { return from.height + to.height; }
    // Light comes from the left and above.
    double brightness() const
    {
        const double slope = (to.height - from.height) / (to.along - from.along);
        return isFromBehind() ? 0.78 : 1 - 0.1 * std::abs(slope) - 0.06 * slope;
    }
};

// The lowest first. A sheet that is not folded is one panel.
std::vector<PanelOfSheet> PanelsOf(const SheetFolds& folds)
{
    if (folds.points.empty()) {
        return {
            {{0, 0, 0}, {1, 1, 0}}
        };
    }
    std::vector<PanelOfSheet> panels;
    for (std::size_t end = 1; end < folds.points.size(); ++end) {
        panels.push_back({folds.points[end - 1], folds.points[end]});
    }
    std::stable_sort(panels.begin(), panels.end(), [](const auto& left, const auto& right) {
        return left.height() < right.height();
    });
    return panels;
}

class SheetPainter {
public:
    SheetPainter(const Cairo::RefPtr<Cairo::Context>& context, const FinishedSet& set, double width,
                 double height)
        : context_(context),
          set_(set),
          marks_(MarksOf(set)),
          pile_(PileOf(set, marks_)),
          geometry_(set, marks_, pile_, width, height),
          unit_(geometry_.shortSide())
    {
    }

    void draw()
    {
        context_->save();
        context_->push_group(); // so that holes go through all of it and no further
        context_->set_line_join(Cairo::LINE_JOIN_ROUND);
        for (const PileSheet& sheet : pile_) {
            const bool isTop = &sheet == &pile_.back();
            context_->save();
            context_->translate(snapped(sheet.right * unit_), snapped(sheet.down * unit_));
            drawSheet(sheet.isSlipSheet, isTop);
            context_->restore();
        }
        drawBinding();
        drawTemplateFrame();
        drawStaples();
        punchHoles();
        context_->pop_group_to_source();
        context_->paint();
        context_->restore();
    }

private:
    static double snapped(double length)
    {
        return length > 0 ? std::max(1.0, std::round(length)) : std::round(length);
    }
    double thin() const { return std::max(1.0, std::round(unit_ * 0.008)); }
    void use(const Ink& ink)
    {
        context_->set_source_rgba(ink.red, ink.green, ink.blue, ink.opacity);
    }
    // Middles of pixels, where a line of one pixel is sharp.
    PicturePoint at(double x, double y) const
    {
        const PicturePoint point = geometry_.at({x, y});
        return marks_.folds.points.empty()
                   ? PicturePoint{std::floor(point.x) + 0.5, std::floor(point.y) + 0.5}
                   : point;
    }
    void path(std::initializer_list<PicturePoint> points)
    {
        context_->begin_new_path();
        for (const PicturePoint& point : points) {
            context_->line_to(point.x, point.y);
        }
        context_->close_path();
    }
    void fillAndStroke(const Ink& fill)
    {
        use(fill);
        context_->fill_preserve();
        use(EdgeInk);
        context_->set_line_width(thin());
        context_->stroke();
    }

    std::optional<TurnedCorner> turnedCorner() const
    {
        const bool isTwoSided = set_.sides == TwoSidedLongEdge || set_.sides == TwoSidedShortEdge;
        const bool showsIt = isTwoSided && marks_.folds.points.empty() && !marks_.isBooklet;
        return showsIt ? CornerToTurn(set_, marks_) : std::nullopt;
    }

    void drawSheet(bool isSlipSheet, bool isTop)
    {
        if (const auto turned = isTop ? turnedCorner() : std::nullopt) {
            drawWithTurnedCorner(*turned);
            return;
        }
        const Ink paper = isSlipSheet ? SlipSheetInk : PaperInk(set_.paperColor);
        for (const PanelOfSheet& panel : PanelsOf(marks_.folds)) {
            pathOf(panel);
            fillAndStroke(Shaded(paper, panel.brightness()));
            if (isTop && (!panel.isFromBehind() || set_.sides > OneSided)) {
                drawPrint(panel);
            }
        }
        if (isTop && marks_.isBooklet && marks_.folds.points.empty()) {
            drawLineBetweenPages();
        }
    }

    void pathOf(const PanelOfSheet& panel)
    {
        const double from = panel.from.along;
        const double to = panel.to.along;
        if (marks_.folds.areFlat) {
            path({at(0, from), at(1, from), at(1, to), at(0, to)});
        } else {
            path({at(from, 0), at(to, 0), at(to, 1), at(from, 1)});
        }
    }

    void drawLineBetweenPages()
    {
        const PicturePoint top = at(0.5, 0);
        const PicturePoint bottom = at(0.5, 1);
        context_->move_to(top.x, top.y);
        context_->line_to(bottom.x, bottom.y);
        use(PrintInk);
        context_->set_line_width(thin());
        context_->stroke();
    }

    // The sheet without its corner, and the corner folded over: its other side, a little darker.
    void drawWithTurnedCorner(const TurnedCorner& turned)
    {
        const Ink paper = PaperInk(set_.paperColor);
        const double otherX = 1 - turned.corner.x;
        const double otherY = 1 - turned.corner.y;
        const PicturePoint upright = at(turned.onUpright.x, turned.onUpright.y);
        const PicturePoint flat = at(turned.onFlat.x, turned.onFlat.y);
        path({at(otherX, otherY), at(turned.corner.x, otherY), upright, flat,
              at(otherX, turned.corner.y)});
        context_->save();
        context_->clip_preserve();
        use(paper);
        context_->fill();
        drawPrint(PanelsOf(marks_.folds).front());
        context_->restore();
        path({at(otherX, otherY), at(turned.corner.x, otherY), upright, flat,
              at(otherX, turned.corner.y)});
        use(EdgeInk);
        context_->set_line_width(thin());
        context_->stroke();
        const PicturePoint corner = Mirrored(at(turned.corner.x, turned.corner.y), upright, flat);
        path({upright, corner, flat});
        fillAndStroke(Shaded(paper, 0.85));
        drawPrintOnEar(upright, corner, flat);
    }

    void drawPrintOnEar(PicturePoint from, PicturePoint corner, PicturePoint to)
    {
        use(PrintInk);
        context_->set_line_width(std::max(1.0, unit_ * 0.025));
        for (const double part : {0.3, 0.5}) { // between the fold and the corner
            const auto towards = [part, corner](PicturePoint point) {
                return PicturePoint{point.x + part * (corner.x - point.x),
                                    point.y + part * (corner.y - point.y)};
            };
            const PicturePoint start = towards(from);
            const PicturePoint end = towards(to);
            context_->move_to(start.x + 0.25 * (end.x - start.x),
                              start.y + 0.25 * (end.y - start.y));
            context_->line_to(end.x - 0.25 * (end.x - start.x), end.y - 0.25 * (end.y - start.y));
            context_->stroke();
        }
    }

    struct Column {
        double from;
        double to;
    };

    // Lines of text, as far as they are on the panel.
    void drawPrint(const PanelOfSheet& panel)
    {
        const std::vector<Column> columns = marks_.isBooklet
                                                ? std::vector<Column>{{0.09, 0.43}, {0.57, 0.91}}
                                                : std::vector<Column>{{0.17, 0.83}};
        const int lines = set_.isLandscape ? 5 : 8;
        for (const Column& column : columns) {
            for (int line = 0; line < lines; ++line) {
                const double y = 0.16 + 0.68 * line / (lines - 1);
                const double part = line == 0 ? 0.6 : line == lines - 1 ? 0.75 : 1;
                drawLineOfPrint(panel, y,
                                {column.from, column.from + part * (column.to - column.from)},
                                line == 0);
            }
        }
    }

    void drawLineOfPrint(const PanelOfSheet& panel, double y, Column line, bool isHeading)
    {
        constexpr double Gap = 0.025; // from a fold
        const bool isFolded = !marks_.folds.points.empty();
        const double low = panel.from.along + (isFolded ? Gap : 0);
        const double high = panel.to.along - (isFolded ? Gap : 0);
        if (marks_.folds.areFlat) {
            if (y < low || y > high) {
                return;
            }
        } else {
            line = {std::max(line.from, low), std::min(line.to, high)};
        }
        if (line.from >= line.to) {
            return;
        }
        const PicturePoint from = at(line.from, y);
        const PicturePoint to = at(line.to, y);
        context_->move_to(from.x, from.y);
        context_->line_to(to.x, to.y);
        use(PrintInk);
        context_->set_line_width(std::max(1.0, unit_ * (isHeading ? 0.05 : 0.025)));
        context_->stroke();
    }

    void drawBinding()
    {
        constexpr double Depth = 0.1; // of the tape, in parts of the short side
        const double x = set_.isLandscape ? Depth / PageProportion : Depth;
        const double y = set_.isLandscape ? Depth : Depth / PageProportion;
        switch (marks_.binding) {
        case SheetEdge::None:
            return;
        case SheetEdge::Left:
            path({at(0, 0), at(x, 0), at(x, 1), at(0, 1)});
            break;
        case SheetEdge::Right:
            path({at(1 - x, 0), at(1, 0), at(1, 1), at(1 - x, 1)});
            break;
        case SheetEdge::Top:
            path({at(0, 0), at(1, 0), at(1, y), at(0, y)});
            break;
        case SheetEdge::Bottom:
            path({at(0, 1 - y), at(1, 1 - y), at(1, 1), at(0, 1)});
            break;
        }
        fillAndStroke(AccentInk);
    }

    // What a template does, only the front end knows: a frame says that it does something.
    void drawTemplateFrame()
    {
        if (set_.finishing.option != FinishingFamily::Custom) {
            return;
        }
        constexpr double Inset = 0.07;
        path({at(Inset, Inset), at(1 - Inset, Inset), at(1 - Inset, 1 - Inset),
              at(Inset, 1 - Inset)});
        use(AccentInk);
        context_->set_line_width(2 * thin());
        context_->set_dash(std::vector<double>{unit_ * 0.08, unit_ * 0.06}, 0);
        context_->stroke();
        context_->unset_dash();
    }

    void drawStaples()
    {
        for (const StapleMark& staple : marks_.staples) {
            drawStaple(staple, std::max(5.0, unit_ * 0.085), StapleLight);
            drawStaple(staple, std::max(3.0, unit_ * 0.045), StapleInk);
        }
    }

    void drawStaple(const StapleMark& staple, double thickness, const Ink& ink)
    {
        const double half = std::max(4.0, unit_ * 0.075);
        const double angle = staple.degrees * std::numbers::pi / 180;
        const PicturePoint middle = geometry_.at(staple.place);
        const double dx = half * std::cos(angle);
        const double dy = half * std::sin(angle);
        context_->move_to(middle.x - dx, middle.y - dy);
        context_->line_to(middle.x + dx, middle.y + dy);
        use(ink);
        context_->set_line_cap(Cairo::LINE_CAP_ROUND);
        context_->set_line_width(thickness);
        context_->stroke();
        context_->set_line_cap(Cairo::LINE_CAP_BUTT);
    }

    void punchHoles()
    {
        for (const SheetPlace& hole : marks_.holes) {
            const PicturePoint middle = geometry_.at(hole);
            context_->begin_new_path();
            context_->arc(middle.x, middle.y, std::max(1.8, unit_ * 0.036), 0,
                          2 * std::numbers::pi);
            context_->set_operator(Cairo::OPERATOR_CLEAR);
            context_->fill_preserve();
            context_->set_operator(Cairo::OPERATOR_OVER);
            use(EdgeInk);
            context_->set_line_width(thin());
            context_->stroke();
        }
    }

    Cairo::RefPtr<Cairo::Context> context_;
    const FinishedSet& set_;
    FinishingMarks marks_;
    std::vector<PileSheet> pile_;
    SheetGeometry geometry_;
    double unit_; // the short side of a page
};

} // namespace

void DrawFinishedSet(const Cairo::RefPtr<Cairo::Context>& context, double width, double height,
                     const FinishedSet& set)
{
    constexpr double Smallest = 8; // pixels, below which nothing is to be seen
    if (width >= Smallest && height >= Smallest) {
        SheetPainter(context, set, width, height).draw();
    }
}

} // namespace tarvo
