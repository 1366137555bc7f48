#include "print/Dialog.h"

#include "print/Texts.h"

#include <gtk/gtk.h>
#include <gtk/gtkunixprint.h>

namespace tarvo {
namespace {

// How far a job is with the print server.
struct Sending {
    bool isDone = false;
    std::string error;
};

void SendingDone(GtkPrintJob* /*job*/, gpointer sending, const GError* error)
{
    auto& state = *static_cast<Sending*>(sending);
    state.isDone = true;
    state.error = error == nullptr ? "" : error->message;
}

struct JobDeleter {
    void operator()(GtkPrintJob* job) const { g_object_unref(job); }
};

bool SendFile(GtkPrintJob* job, const std::string& pdf, std::string& reason)
{
    GError* error = nullptr;
    if (gtk_print_job_set_source_file(job, pdf.c_str(), &error) == FALSE) {
        reason = std::string("cannot print: ") + error->message;
        g_error_free(error);
        return false;
    }
    Sending sending;
    gtk_print_job_send(job, SendingDone, &sending, nullptr);
    while (!sending.isDone) {
        g_main_context_iteration(nullptr, TRUE);
    }
    reason = sending.error.empty() ? "" : "cannot print: " + sending.error;
    return sending.error.empty();
}

} // namespace

Dialog::Dialog(const std::string& printer) : settings_(gtk_print_settings_new())
{
    if (!printer.empty()) {
        gtk_print_settings_set_printer(settings_, printer.c_str());
    }
}

Dialog::~Dialog()
{
    g_object_unref(settings_);
    g_clear_object(&setup_);
}

PrintOutcome Dialog::print(Document& document, std::string& reason)
{
    GtkWidget* widget = gtk_print_unix_dialog_new(DialogTitle(document.title()).c_str(), nullptr);
    auto* dialog = GTK_PRINT_UNIX_DIALOG(widget);
    gtk_print_unix_dialog_set_manual_capabilities(dialog, GTK_PRINT_CAPABILITY_GENERATE_PDF);
    gtk_print_unix_dialog_set_embed_page_setup(dialog, TRUE);
    gtk_print_unix_dialog_set_settings(dialog, settings_);
    if (setup_ != nullptr) {
        gtk_print_unix_dialog_set_page_setup(dialog, setup_);
    }
    if (gtk_dialog_run(GTK_DIALOG(widget)) != GTK_RESPONSE_OK) {
        gtk_widget_destroy(widget);
        return PrintOutcome::Cancelled;
    }
    g_object_unref(settings_);
    settings_ = gtk_print_unix_dialog_get_settings(dialog);
    g_clear_object(&setup_);
    setup_ = gtk_page_setup_copy(gtk_print_unix_dialog_get_page_setup(dialog));
    const std::unique_ptr<GtkPrintJob, JobDeleter> job(
        gtk_print_job_new(document.title().c_str(),
                          gtk_print_unix_dialog_get_selected_printer(dialog), settings_, setup_));
    gtk_widget_destroy(widget);
    const auto pdf = document.pdf(setup_, reason);
    return pdf && SendFile(job.get(), *pdf, reason) ? PrintOutcome::Sent : PrintOutcome::Failed;
}

} // namespace tarvo
