#include "host/PrintJob.h"

#include "host/Guarded.h"
#include "host/PendingTickets.h"

#include <gtk/gtk.h>
#include <gtk/gtkunixprint.h>

namespace tarvo {
namespace {

void DeleteOptions(gpointer options, GClosure* /*closure*/)
{
    std::unique_ptr<JobOptions>(static_cast<JobOptions*>(options)).reset();
}

// The moment when the job's settings are read follows the one status. Earlier ones are too early:
// what the page setup says would be written over ours.
void StatusChanged(GtkPrintJob* job, gpointer options)
{
    if (gtk_print_job_get_status(job) != GTK_PRINT_STATUS_SENDING_DATA) {
        return;
    }
    GtkPrintSettings* settings = gtk_print_job_get_settings(job);
    for (const auto& [key, option] : *static_cast<const JobOptions*>(options)) {
        gtk_print_settings_set(settings, ("cups-" + option.name).c_str(), option.value.c_str());
    }
}

} // namespace

void TicketToJob(GtkPrintJob* job)
{
    GtkPrinter* printer = gtk_print_job_get_printer(job);
    if (printer == nullptr || gtk_printer_is_virtual(printer)) {
        return;
    }
    GtkPageSetup* setup = nullptr;
    g_object_get(job, "page-setup", &setup, nullptr);
    auto options = PendingTickets::Shared().take(gtk_printer_get_name(printer), setup);
    g_clear_object(&setup);
    if (!options) {
        return;
    }
    g_signal_connect_data(job, "status-changed", G_CALLBACK(+[](GtkPrintJob* sent, gpointer data) {
                              Guarded([sent, data] { StatusChanged(sent, data); });
                          }),
                          std::make_unique<JobOptions>(std::move(*options)).release(),
                          DeleteOptions, GConnectFlags(0));
}

} // namespace tarvo
