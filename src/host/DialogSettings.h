#pragma once

#include "platform/printing/PMPrintSession.h"
#include "platform/printing/PPDFile.h"

using GtkPageSetup = struct _GtkPageSetup;         // NOLINT(bugprone-reserved-identifier): GTK's
using GtkPrintSettings = struct _GtkPrintSettings; // NOLINT(bugprone-reserved-identifier)

namespace tarvo {

/// The page that a dialog prints on; the toolkit's sizes are fractions of a point off.
PageFormat PageFormatOf(GtkPageSetup* setup);

/// The choices in the dialog's own tabs: those of the printer's description, and no others.
CFDictionary ChoicesOf(GtkPrintSettings* settings, const PPDFile& ppd);

/// Takes over into a PPD dictionary what the user has changed from one look at the dialog's own
/// tabs to the next. Of the other choices, those that the plug-in has made meanwhile stay.
void TakeChanges(const CFDictionary& before, const CFDictionary& now, CFDictionary& choices);

} // namespace tarvo
