#pragma once

#include "platform/printing/PMPrintSession.h"
#include "platform/printing/PPDFile.h"

using GtkPageSetup = struct _GtkPageSetup;         // NOLINT(bugprone-reserved-identifier): GTK's
using GtkPrintSettings = struct _GtkPrintSettings; // NOLINT(bugprone-reserved-identifier)

namespace tarvo {

/// The page that a dialog prints on; the toolkit's sizes are fractions of a point off.
PageFormat PageFormatOf(GtkPageSetup* setup);

/// Takes the choices that the user has made in the dialog's own tabs over into a PPD dictionary:
/// those of the printer's description, and no others.
void TakeChoices(GtkPrintSettings* settings, const PPDFile& ppd, CFDictionary& choices);

} // namespace tarvo
