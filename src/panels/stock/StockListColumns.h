#pragma once

#include "stocklibrary/StockLibraryView.h"

#include <gtkmm/treeview.h>

#include <cstddef>

namespace tarvo {

class CFBundle;

/// The width of a column that the user has not chosen, for text of the user's size.
int UsualStockColumnWidth(std::size_t column);

/// Makes the columns of StockColumns, as the view has them, for rows of a StockListModel. Rows and
/// columns have fixed sizes, so that a list is painted without a look at more than it shows.
void MakeStockColumns(const CFBundle& bundle, Gtk::TreeView& list, const StockLibraryView& view);

} // namespace tarvo
