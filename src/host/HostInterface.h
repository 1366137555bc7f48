#pragma once

// What the thin module calls in the host part, which it loads when a printer is selected in a
// print dialog for the first time. C11 and C++20; main thread only; no exception comes out.

#ifdef __cplusplus
extern "C" {
#endif

struct _GObject; // NOLINT(bugprone-reserved-identifier): GLib's

/// A dialog's printer has changed; never called for a dialog that has been destroyed.
typedef void (*TarvoPrinterSelected)(struct _GObject* dialog);

/// A dialog has been answered, and its application has not heard of it yet. 0 keeps it open, and
/// the application is not to hear of the answer.
typedef int (*TarvoDialogResponse)(struct _GObject* dialog, int response);

/// A job has been constructed, and its creator has not seen it yet.
typedef void (*TarvoJobConstructed)(struct _GObject* job);

// The functions' names: for each GtkPrintUnixDialog, and for each GtkPrintJob.
#define TARVO_PRINTER_SELECTED "TarvoPrinterIsSelected"
#define TARVO_DIALOG_RESPONSE "TarvoDialogIsAnswered"
#define TARVO_JOB_CONSTRUCTED "TarvoJobIsConstructed"

#ifdef __cplusplus
}
#endif
