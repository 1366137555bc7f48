#pragma once

// What the thin module calls in the host part, which it loads when the first print dialog appears.
// C11 and C++20; main thread only; no exception comes out.

#ifdef __cplusplus
extern "C" {
#endif

struct _GObject; // NOLINT(bugprone-reserved-identifier): GLib's

/// An object has been constructed, and its creator has not seen it yet.
typedef void (*TarvoObjectConstructed)(struct _GObject* object);

// The functions' names: for each GtkPrintUnixDialog, and for each GtkPrintJob.
#define TARVO_DIALOG_CONSTRUCTED "TarvoDialogConstructed"
#define TARVO_JOB_CONSTRUCTED "TarvoJobConstructed"

#ifdef __cplusplus
}
#endif
