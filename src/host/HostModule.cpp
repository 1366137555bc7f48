// The entries of the host part, under the names of host/HostInterface.h.
#include "host/Guarded.h"
#include "host/HostInterface.h"
#include "host/PrintDialog.h"
#include "host/PrintJob.h"

#include <gtk/gtk.h>
#include <gtk/gtkunixprint.h>

extern "C" {

[[gnu::visibility("default")]] void TarvoDialogConstructed(GObject* object)
{
    tarvo::Guarded([object] { tarvo::PrintDialog::Watch(GTK_PRINT_UNIX_DIALOG(object)); });
}

[[gnu::visibility("default")]] void TarvoJobConstructed(GObject* object)
{
    tarvo::Guarded([object] { tarvo::TicketToJob(GTK_PRINT_JOB(object)); });
}

} // extern "C"
