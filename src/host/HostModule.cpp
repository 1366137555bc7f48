// The entries of the host part, under the names of host/HostInterface.h.
#include "host/Guarded.h"
#include "host/HostInterface.h"
#include "host/PrintDialog.h"
#include "host/PrintJob.h"

#include <gtk/gtk.h>
#include <gtk/gtkunixprint.h>

extern "C" {

[[gnu::visibility("default")]] void TarvoPrinterIsSelected(GObject* object)
{
    tarvo::Guarded(
        [object] { tarvo::PrintDialog::PrinterSelected(GTK_PRINT_UNIX_DIALOG(object)); });
}

[[gnu::visibility("default")]] int TarvoDialogIsAnswered(GObject* object, int response)
{
    bool isHeard = true;
    tarvo::Guarded([object, response, &isHeard] {
        isHeard = tarvo::PrintDialog::Respond(GTK_PRINT_UNIX_DIALOG(object), response);
    });
    return isHeard ? 1 : 0;
}

[[gnu::visibility("default")]] void TarvoJobIsConstructed(GObject* object)
{
    tarvo::Guarded([object] { tarvo::TicketToJob(GTK_PRINT_JOB(object)); });
}

} // extern "C"
