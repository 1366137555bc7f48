#pragma once

#include "records/StockDialogs.h"

#include <gtkmm/window.h>

namespace tarvo {

class CFBundle;

/// The questions of choosing a stock as modal dialogs. One that cannot be shown counts as
/// cancelled.
class StockWindows : public StockDialogs {
public:
    /// @param bundle  outlives this
    /// @param parent  of the dialogs; may be null
    StockWindows(const CFBundle& bundle, Gtk::Window* parent) : bundle_(bundle), parent_(parent) {}

    bool askCustomSize(std::int32_t& width, std::int32_t& length) override;
    bool askCustomColor(JobContext context, Stock& stock) override;
    bool askCustomType(JobContext context, Stock& stock) override;
    bool askOrderedStock(JobContext context, Stock& stock) override;
    bool askPrecutTabs(JobContext context, Stock& stock) override;
    bool askDescription(JobContext context, Stock& stock) override;
    bool askAdvancedSelection(JobContext context, Stock& stock) override;
    bool askPaperName(std::string& name) override;
    LibraryAnswer askStockLibrary(JobContext context, Stock& stock) override;

private:
    const CFBundle& bundle_;
    Gtk::Window* parent_;
};

} // namespace tarvo
