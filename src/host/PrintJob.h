#pragma once

using GtkPrintJob = struct _GtkPrintJob; // NOLINT(bugprone-reserved-identifier): GTK's

namespace tarvo {

/// Gives a new job the ticket that waits for one of its printer, if any: the ticket joins the job's
/// settings when the job is sent. The application's own settings stay as they are.
void TicketToJob(GtkPrintJob* job);

} // namespace tarvo
