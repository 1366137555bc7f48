#include "panels/stock/StockPicture.h"

#include "panels/toolkit/Guarded.h"
#include "records/Stock.h"
#include "settings/StockMaps.h"

#include <algorithm>
#include <utility>

namespace tarvo {
namespace {

constexpr PictureColor Paper = {1, 1, 1};
constexpr PictureColor Edge = {0.35, 0.35, 0.38};
constexpr PictureColor Shade = {0.62, 0.62, 0.66};
constexpr double LineWidth = 1;
constexpr double LeastTab = 3;        // points, of a tab that can still be seen
constexpr double WidestSheet = 0.773; // of the height, as Letter

struct ColorRow {
    std::int32_t value;
    PictureColor color;
};

// Colours of StockColorMap that have a look; 0 ends the table.
constexpr ColorRow ColorMap[] = {
    {2,  {0.68, 0.83, 0.96}},
    {3,  {1.00, 0.95, 0.55}},
    {4,  {0.71, 0.89, 0.70}},
    {5,  {0.98, 0.76, 0.82}},
    {6,  {0.91, 0.96, 0.98}},
    {11, {1.00, 0.98, 0.90}},
    {12, {0.80, 0.80, 0.80}},
    {7,  {0.96, 0.87, 0.70}},
    {8,  {0.97, 0.78, 0.33}},
    {9,  {0.93, 0.48, 0.45}},
    {13, {0.98, 0.70, 0.43}},
    {0,  Paper             },
};

void SetColor(const Cairo::RefPtr<Cairo::Context>& context, const PictureColor& color)
{
    context->set_source_rgb(color.red, color.green, color.blue);
}

void FillBox(const Cairo::RefPtr<Cairo::Context>& context, const PictureBox& box,
             const PictureColor& fill)
{
    context->rectangle(box.left, box.top, box.width, box.height);
    SetColor(context, fill);
    context->fill_preserve();
    SetColor(context, Edge);
    context->set_line_width(LineWidth);
    context->stroke();
}

// As much of a picture as an upright sheet takes.
PictureBox UprightSheet(const PictureBox& box)
{
    const double height = box.height - 2 * LineWidth;
    const double width = std::min(box.width - 2 * LineWidth, height * WidestSheet);
    return {box.left + (box.width - width) / 2, box.top + LineWidth, width, height};
}

void DrawHoles(const Cairo::RefPtr<Cairo::Context>& context, const PictureBox& sheet)
{
    constexpr double FullCircle = 6.2831853071795865;
    const double radius = std::max(1.0, sheet.height / 24);
    for (const double place : {0.2, 0.5, 0.8}) {
        context->arc(sheet.left + 2.5 * radius, sheet.top + place * sheet.height, radius, 0,
                     FullCircle);
        SetColor(context, Shade);
        context->fill();
    }
}

} // namespace

PictureColor PaperColor(const Stock& stock)
{
    if (stock.customNameOnly()) {
        return Paper;
    }
    const ColorRow* row = ColorMap;
    while (row->value != 0 && row->value != stock.color()) {
        ++row;
    }
    return row->color;
}

PictureBox PageBox(const StockDimensions& page, const StockDimensions& largest,
                   const PictureBox& picture)
{
    if (page.width <= 0 || page.length <= 0) {
        return picture;
    }
    const double wide = std::max(page.width, largest.width);
    const double high = std::max(page.length, largest.length);
    const double scale = std::min(picture.width / wide, picture.height / high);
    const double width = page.width * scale;
    const double height = page.length * scale;
    return {picture.left + (picture.width - width) / 2, picture.top + (picture.height - height) / 2,
            width, height};
}

std::vector<PictureBox> TabBoxes(std::int32_t count, const PictureBox& sheet, double tabWidth)
{
    std::vector<PictureBox> tabs;
    if (count < 1) {
        return tabs;
    }
    const auto most = static_cast<std::int32_t>(sheet.height / LeastTab);
    const std::int32_t drawn = std::clamp(count, 1, std::max(most, 1));
    const double height = sheet.height / drawn;
    for (std::int32_t index = 0; index < drawn; ++index) {
        tabs.push_back({sheet.left + sheet.width, sheet.top + index * height, tabWidth, height});
    }
    return tabs;
}

void ShowDrawing(Gtk::DrawingArea& area, Picture picture)
{
    Gtk::DrawingArea* const shown = &area;
    area.signal_draw().connect(Guarded(
        [shown, picture = std::move(picture)](const Cairo::RefPtr<Cairo::Context>& context) {
            picture(context, {0, 0, static_cast<double>(shown->get_allocated_width()),
                              static_cast<double>(shown->get_allocated_height())});
            return true;
        }));
}

void DrawPaper(const Cairo::RefPtr<Cairo::Context>& context, const PictureBox& box,
               const Stock& stock)
{
    const PictureBox sheet = UprightSheet(box);
    FillBox(context, sheet, PaperColor(stock));
    if (stock.punched() == 2 && !stock.customNameOnly()) {
        DrawHoles(context, sheet);
    }
}

void DrawPageOutline(const Cairo::RefPtr<Cairo::Context>& context, const PictureBox& box,
                     const StockDimensions& page, const StockDimensions& largest)
{
    const PictureBox inside = {box.left + LineWidth, box.top + LineWidth, box.width - 2 * LineWidth,
                               box.height - 2 * LineWidth};
    const PictureBox room = PageBox(largest, page, inside);
    context->rectangle(room.left, room.top, room.width, room.height);
    SetColor(context, Shade);
    context->set_line_width(LineWidth);
    context->set_dash(std::vector<double>{3, 3}, 0);
    context->stroke();
    context->unset_dash();
    FillBox(context, PageBox(page, largest, inside), Paper);
}

void DrawTabs(const Cairo::RefPtr<Cairo::Context>& context, const PictureBox& box,
              std::int32_t count)
{
    PictureBox sheet = UprightSheet(box);
    const double tabWidth = sheet.width / 10;
    sheet.left -= tabWidth / 2;
    for (const PictureBox& tab : TabBoxes(count, sheet, tabWidth)) {
        FillBox(context, tab, Paper);
    }
    FillBox(context, sheet, Paper);
}

} // namespace tarvo
