#include "host/PrintDialog.h"

#include "host/Guarded.h"
#include "host/PendingTickets.h"
#include "host/PrinterInquiries.h"
#include "platform/bundle/CFBundle.h"

#include <gtk/gtk.h>
#include <gtk/gtkunixprint.h>

namespace tarvo {
namespace {

// What is wrong, and what to do about it, when a ticket cannot travel with its job.
constexpr const char* CannotSendHeaderKey = "Job Settings Not Sent Header";
constexpr const char* TooLargeMessageKey = "Job Settings Too Large Message";
constexpr const char* NotWritableMessageKey = "Job Settings Not Writable Message";

std::string NameOf(GtkPrinter* printer)
{
    const bool isQueue = printer != nullptr && !gtk_printer_is_virtual(printer);
    return isQueue ? gtk_printer_get_name(printer) : "";
}

// The plug-in's number of a button; 0 for one that it is not asked about.
std::int32_t ControlOf(int response)
{
    switch (response) {
    case GTK_RESPONSE_OK:
        return TARVO_DEFAULT_BUTTON;
    case GTK_RESPONSE_CANCEL:
    case GTK_RESPONSE_DELETE_EVENT:
        return TARVO_CANCEL_BUTTON;
    default:
        return 0;
    }
}

void Alert(GtkPrintUnixDialog* dialog, const char* header, const char* message)
{
    const CFBundle bundle(BundleOfThisModule(), UserLanguages());
    constexpr auto Flags = GtkDialogFlags(GTK_DIALOG_MODAL | GTK_DIALOG_DESTROY_WITH_PARENT);
    GtkWidget* alert =
        gtk_message_dialog_new(GTK_WINDOW(dialog), Flags, GTK_MESSAGE_ERROR, GTK_BUTTONS_OK, "%s",
                               bundle.localizedString(header).c_str());
    g_object_ref(alert); // it may go with the dialog
    gtk_message_dialog_format_secondary_text(GTK_MESSAGE_DIALOG(alert), "%s",
                                             bundle.localizedString(message).c_str());
    gtk_dialog_run(GTK_DIALOG(alert));
    gtk_widget_destroy(alert);
    g_object_unref(alert);
}

// Applications give the dialog's page setup to the job as it is.
PendingTickets::Token TokenOf(GtkPrintUnixDialog* dialog)
{
    GtkPageSetup* setup = gtk_print_unix_dialog_get_page_setup(dialog);
    return setup == nullptr ? nullptr : PendingTickets::Token(g_object_ref(setup), g_object_unref);
}

using Owner = std::shared_ptr<PrintDialog>;

constexpr const char* OwnerName = "tarvo-print-dialog";

void DeleteOwner(gpointer owner)
{
    std::unique_ptr<Owner>(static_cast<Owner*>(owner)).reset();
}

} // namespace

void PrintDialog::PrinterSelected(GtkPrintUnixDialog* dialog)
{
    if (!Of(dialog)) {
        Adopt(dialog);
    }
    Of(dialog)->printerSelected();
}

bool PrintDialog::Respond(GtkPrintUnixDialog* dialog, int response)
{
    const auto self = Of(dialog); // the dialog may end meanwhile
    return !self || self->respond(response);
}

std::shared_ptr<PrintDialog> PrintDialog::Of(GtkPrintUnixDialog* dialog)
{
    auto* owner = static_cast<Owner*>(g_object_get_data(G_OBJECT(dialog), OwnerName));
    return owner == nullptr ? nullptr : *owner;
}

void PrintDialog::Adopt(GtkPrintUnixDialog* dialog)
{
    auto owner = std::make_unique<Owner>(std::make_shared<PrintDialog>(dialog));
    g_signal_connect(dialog, "destroy", G_CALLBACK(+[](GtkWidget*, gpointer self) {
                         Guarded([self] { static_cast<PrintDialog*>(self)->dialogDestroyed(); });
                     }),
                     owner->get());
    g_object_set_data_full(G_OBJECT(dialog), OwnerName, owner.release(), DeleteOwner);
}

// The dialog itself, and this, may stay for as long as the application keeps a reference.
void PrintDialog::dialogDestroyed()
{
    printer_.clear(); // no answer to an inquiry is for this
    end();
}

void PrintDialog::printerSelected()
{
    std::string printer = NameOf(gtk_print_unix_dialog_get_selected_printer(dialog_));
    if (session_ && printer == printer_) {
        return;
    }
    end();
    printer_ = std::move(printer);
    if (printer_.empty()) {
        return;
    }
    PrinterInquiries::Shared().ask(
        printer_, [weak = weak_from_this(), name = printer_](const PrinterFacts& facts) {
            if (const auto self = weak.lock()) {
                self->begin(name, facts);
            }
        });
}

// The user may have gone on to another printer meanwhile, and back.
void PrintDialog::begin(const std::string& printer, const PrinterFacts& facts)
{
    if (printer == printer_ && !session_ && facts.isOurs()) {
        session_ = DialogSession::Begin(dialog_, facts);
    }
}

// False keeps the dialog open. The plug-in may turn the main loop, in which everything can end.
bool PrintDialog::respond(int response)
{
    const auto session = session_;
    const std::int32_t control = ControlOf(response);
    if (session && control != 0 && !session->allowsButton(control)) {
        return false;
    }
    if (response != GTK_RESPONSE_OK || printer_.empty() || session != session_) {
        return true;
    }
    return keepTicket(session.get());
}

// Without a session it is told, too, so that this dialog's job takes no ticket of another's.
bool PrintDialog::keepTicket(DialogSession* session) const
{
    std::optional<JobOptions> options;
    if (session != nullptr) {
        JobOptionsFault fault = JobOptionsFault::None;
        options = JobOptionsOf(session->fillTicket(), fault);
        if (!options) {
            Alert(dialog_, CannotSendHeaderKey,
                  fault == JobOptionsFault::TooLarge ? TooLargeMessageKey : NotWritableMessageKey);
            return false;
        }
    }
    PendingTickets::Shared().keep(printer_, TokenOf(dialog_), std::move(options));
    return true;
}

} // namespace tarvo
