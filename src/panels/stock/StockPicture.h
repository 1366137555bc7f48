#pragma once

#include "records/StockSizes.h"

#include <cairomm/context.h>
#include <gtkmm/drawingarea.h>

#include <cstdint>
#include <functional>
#include <vector>

namespace tarvo {

class Stock;

// Pictures of paper, drawn for the size they have on the screen. Geometry is in points of the
// drawing, from the left top.

struct PictureColor {
    double red = 1;
    double green = 1;
    double blue = 1;
    bool operator==(const PictureColor&) const = default;
};

struct PictureBox {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
};

/// What paper of the stock looks like; white for a colour that has no look of its own, such as the
/// printer's default or one of a name.
PictureColor PaperColor(const Stock& stock);

/// A page in a picture that has room for the largest one, to scale and in the middle. One that is
/// larger, or has no size, fills the picture.
PictureBox PageBox(const StockDimensions& page, const StockDimensions& largest,
                   const PictureBox& picture);

/// The tabs of a set along the right edge of a sheet, from top to bottom; nothing for none. More
/// than can be told apart are drawn as many as can.
std::vector<PictureBox> TabBoxes(std::int32_t count, const PictureBox& sheet, double tabWidth);

using Picture = std::function<void(const Cairo::RefPtr<Cairo::Context>&, const PictureBox&)>;

/// Draws the picture in the area whenever it has to be drawn.
void ShowDrawing(Gtk::DrawingArea& area, Picture picture);

// What areas show.
void DrawPaper(const Cairo::RefPtr<Cairo::Context>& context, const PictureBox& box,
               const Stock& stock);
void DrawPageOutline(const Cairo::RefPtr<Cairo::Context>& context, const PictureBox& box,
                     const StockDimensions& page, const StockDimensions& largest);
void DrawTabs(const Cairo::RefPtr<Cairo::Context>& context, const PictureBox& box,
              std::int32_t count);

} // namespace tarvo
