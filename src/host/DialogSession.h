#pragma once

#include "host/PlugIn.h"
#include "host/PrinterFacts.h"
#include "platform/printing/PMPrintSession.h"

using GtkPrintUnixDialog =
    struct _GtkPrintUnixDialog;      // NOLINT(bugprone-reserved-identifier): GTK's
using GtkWidget = struct _GtkWidget; // NOLINT(bugprone-reserved-identifier)

namespace tarvo {

/// The plug-in at work in a print dialog for one printer: from its Prologue to its Terminate, with
/// its tab in the dialog in between.
class DialogSession {
public:
    /// @param dialog  outlives this
    /// @return null when there is no plug-in, or it does not want the printer
    static std::unique_ptr<DialogSession> Begin(GtkPrintUnixDialog* dialog,
                                                const PrinterFacts& facts);
    DialogSession(const DialogSession&) = delete;
    DialogSession& operator=(const DialogSession&) = delete;
    ~DialogSession();

    /// Asks the plug-in about a button of the dialog. Before the default one, the ticket has what
    /// is chosen in the dialog's own tabs.
    /// @return false when it refuses
    bool allowsButton(std::int32_t control);

    /// Brings the dialog's own tabs and the plug-in's into the ticket.
    /// @return the job ticket, borrowed from the session
    const PMTicket& fillTicket();

private:
    DialogSession(GtkPrintUnixDialog* dialog, const PrinterFacts& facts,
                  std::unique_ptr<PlugIn> plugIn);
    bool start();
    void takeDialogSettings();
    void addTab(const char* title);
    void removeTab();
    void open();

    GtkPrintUnixDialog* dialog_;
    std::shared_ptr<const PrinterPPD> description_; // its file has to stay for the plug-in
    PMPrintSession session_;
    CFDictionary dialogChoices_; // in the dialog's own tabs when they were last looked at
    TarvoPDEHost host_ = {};
    TarvoEventHandler handler_ = nullptr;
    void* handlerData_ = nullptr;
    std::unique_ptr<PlugIn> plugIn_;
    void* context_ = nullptr;
    GtkWidget* tab_ = nullptr; // owned; null while there is none
    bool isOpen_ = false;
};

} // namespace tarvo
