#pragma once

#include "host/DialogSession.h"

namespace tarvo {

/// Watches a print dialog: the plug-in is at work in it while one of our printers is selected, has
/// a say about its buttons, and what it decides waits for the job.
class PrintDialog : public std::enable_shared_from_this<PrintDialog> {
public:
    /// Watches from now on until the dialog's end.
    static void Watch(GtkPrintUnixDialog* dialog);
    explicit PrintDialog(GtkPrintUnixDialog* dialog) : dialog_(dialog) {}

private:
    void connectSignals();
    void printerSelected();
    void begin(const std::string& printer, const PrinterFacts& facts);
    bool respond(int response);
    bool keepTicket(DialogSession& session) const;
    void dialogDestroyed();
    void end() { session_.reset(); }

    GtkPrintUnixDialog* dialog_; // owns this
    std::string printer_;        // selected; "" for none that a print server could know
    std::shared_ptr<DialogSession> session_;
    bool isGone_ = false; // the dialog is destroyed
};

} // namespace tarvo
