#pragma once

#include "host/DialogSession.h"

namespace tarvo {

/// What we have to do with a print dialog: the plug-in is at work in it while one of our printers
/// is selected, has a say about its buttons, and what it decides waits for the job.
class PrintDialog : public std::enable_shared_from_this<PrintDialog> {
public:
    /// The dialog's printer has changed. With the first one it gets an object of this class, which
    /// goes with it.
    static void PrinterSelected(GtkPrintUnixDialog* dialog);
    /// False when the dialog, whose user has answered it, is to stay open.
    static bool Respond(GtkPrintUnixDialog* dialog, int response);
    explicit PrintDialog(GtkPrintUnixDialog* dialog) : dialog_(dialog) {}

private:
    static std::shared_ptr<PrintDialog> Of(GtkPrintUnixDialog* dialog);
    static void Adopt(GtkPrintUnixDialog* dialog);
    void printerSelected();
    void begin(const std::string& printer, const PrinterFacts& facts);
    bool respond(int response);
    bool keepTicket(DialogSession* session) const;
    void dialogDestroyed();
    void end() { session_.reset(); }

    GtkPrintUnixDialog* dialog_; // owns this
    std::string printer_;        // selected; "" for none that a print server could know
    std::shared_ptr<DialogSession> session_;
};

} // namespace tarvo
