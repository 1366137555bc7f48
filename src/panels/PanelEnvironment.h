#pragma once

#include "panels/Panel.h"
#include "platform/bundle/CFBundle.h"
#include "stocklibrary/StockLibraryList.h"

#include <gtkmm/window.h>

#include <functional>
#include <memory>

namespace tarvo {

/// What the panels find of the print dialog that they are in. The shell fills it; of several
/// dialogs at a time it is the one at which the user is. After the end of the last one everything
/// is null again but the bundle.
struct PanelEnvironment {
    const CFBundle* bundle = nullptr;  // null when it was not found
    PMPrintSession* session = nullptr; // from the dialog's initialization
    std::function<OSStatus(SyncDirection)> sync;
    std::function<Gtk::Window*()> window;               // of the dialog; may give null
    std::shared_ptr<StockLibraryList> printerStockList; // what the printer has reported last
    std::function<void()> takePrinterStocks;            // after a retrieval for a window of a panel
};
PanelEnvironment& ThePanelEnvironment();

const CFBundle* GetPDEBundle();
PMPrintSession* GetCurrentPrintSession();

/// The window of the print dialog, for dialogs before it.
/// @return null when there is none
Gtk::Window* GetPDEWindow();

/// Synchronises every panel of the current dialog with its ticket.
/// @param session  not used: the dialog's own is
/// @return StatusNoSession without a dialog
OSStatus PDESync(PMPrintSession* session, SyncDirection direction);

} // namespace tarvo
