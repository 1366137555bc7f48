#pragma once

#include "panels/Panel.h"
#include "platform/bundle/CFBundle.h"
#include "stocklibrary/PrinterStockThread.h"
#include "stocklibrary/StockLibraryList.h"

#include <gtkmm/window.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace tarvo {

/// What is known of the papers of a dialog's printer.
struct PrinterStocksState {
    PrinterStockStatus status = PrinterStockStatus::NoThread;
    std::string cause; // why the last retrieval brought no list, for people
};

/// What the panels find of the print dialog that they are in. The shell fills it; of several
/// dialogs at a time it is the one at which the user is. After the end of the last one everything
/// is null again but the bundle.
struct PanelEnvironment {
    std::uint64_t dialog = 0; // a number that no other dialog ever has; 0: there is no dialog
    /// Makes the dialog of a number the current one; false when it has ended.
    std::function<bool(std::uint64_t dialog)> makeCurrent;
    const CFBundle* bundle = nullptr;  // null when it was not found
    PMPrintSession* session = nullptr; // from the dialog's initialization
    std::function<OSStatus(SyncDirection)> sync;
    std::function<Gtk::Window*()> window;               // of the dialog; may give null
    std::shared_ptr<StockLibraryList> printerStockList; // what the printer has reported last
    std::function<void()> takePrinterStocks;            // after a retrieval for a window of a panel
    std::function<PrinterStocksState()> printerStocksState;
    /// Asks the dialog's printer again, for a window of a panel: see RetrievePrinterStocksFor.
    std::function<void(WindowID window)> askForPrinterStocks;
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

/// The print dialog that is current when this is made. Whoever lets the application go on before
/// the end of what a panel does, as a modal dialog or a wait does, takes one before: meanwhile the
/// user may go to another print dialog, and the application may end this one.
class DialogHandle {
public:
    DialogHandle() : dialog_(ThePanelEnvironment().dialog) {}

    /// Makes it the current one again, so that what the panels find is of it.
    /// @return false when it has ended: its panels are gone, and the current one is another
    [[nodiscard]] bool restore() const;

private:
    std::uint64_t dialog_;
};

} // namespace tarvo
