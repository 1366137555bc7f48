#include "panels/stock/StockListColumns.h"

#include "panels/stock/StockListModel.h"
#include "platform/bundle/CFBundle.h"
#include "stocklibrary/StockColumnTexts.h"

#include <gtk/gtk.h>

namespace tarvo {
namespace {

// Widths for text of the usual size, in the order of StockColumns.
constexpr int UsualWidths[StockColumns.size()] = {170, 140, 90,  120, 60, 90, 80,
                                                  160, 110, 100, 100, 90, 160};

// Of a bold text, with what the renderer leaves above and below.
int HeightOfCell(Gtk::TreeView& list, const Gtk::CellRendererText& renderer)
{
    const auto context = list.get_pango_context();
    auto font = context->get_font_description();
    font.set_weight(Pango::WEIGHT_BOLD);
    const auto metrics = context->get_metrics(font, context->get_language());
    const int text = metrics.get_ascent() + metrics.get_descent();
    const int padding = static_cast<int>(renderer.property_ypad().get_value());
    return (text + Pango::SCALE - 1) / Pango::SCALE + 2 * padding;
}

// Of a size that is known: otherwise the toolkit measures the texts of each row that it is about to
// paint, those in columns out of sight too, which takes longer than the painting.
Gtk::CellRendererText* MakeRenderer(Gtk::TreeView& list)
{
    constexpr int AnyWidth = 1; // the column's it is
    auto* renderer = Gtk::make_managed<Gtk::CellRendererText>();
    renderer->property_ellipsize() = Pango::ELLIPSIZE_END;
    renderer->set_fixed_size(AnyWidth, HeightOfCell(list, *renderer));
    return renderer;
}

} // namespace

int UsualStockColumnWidth(std::size_t column)
{
    constexpr double UsualTextSize = 96 * 1024; // dots per inch, as GTK counts them
    gint textSize = -1;
    g_object_get(gtk_settings_get_default(), "gtk-xft-dpi", &textSize, nullptr);
    const double scale = textSize <= 0 ? 1 : textSize / UsualTextSize;
    return static_cast<int>(UsualWidths[column] * scale);
}

void MakeStockColumns(const CFBundle& bundle, Gtk::TreeView& list, const StockLibraryView& view)
{
    for (std::size_t column = 0; column < StockColumns.size(); ++column) {
        auto* renderer = MakeRenderer(list);
        auto* shown = Gtk::make_managed<Gtk::TreeViewColumn>(
            bundle.localizedString(StockColumnKey(column)), *renderer);
        gtk_tree_view_column_set_attributes(shown->gobj(), GTK_CELL_RENDERER(renderer->gobj()),
                                            "text", static_cast<int>(column), "sensitive",
                                            StockListModel::CanBeChosenColumn, "weight",
                                            StockListModel::WeightColumn, nullptr);
        shown->set_sizing(Gtk::TREE_VIEW_COLUMN_FIXED);
        shown->set_resizable(true);
        shown->set_fixed_width(view.widths[column] ? *view.widths[column]
                                                   : UsualStockColumnWidth(column));
        shown->set_visible(!view.isHidden[column]);
        list.append_column(*shown);
    }
}

} // namespace tarvo
