#pragma once

#include "platform/printing/PMStatus.h"
#include "records/StockDialogs.h"
#include "settings/JobContext.h"

#include <gtkmm/window.h>

namespace tarvo {

class CFBundle;
class Stock;

/// Shows the user's named papers and the printer's, lets the user keep the former and choose one.
/// Changes of the library last, whatever the result.
/// @param context  for whom a stock is chosen
/// @param stock    becomes the chosen paper's, exactly as it stands in the library
/// @param answer   PaperLost only for a stock whose paper a library had when this was opened
/// @return StatusNoWindow when the dialog cannot be shown, which is as if it had been cancelled
OSStatus RunModalStockLibraryDialog(const CFBundle& bundle, Gtk::Window* parent, JobContext context,
                                    Stock& stock, LibraryAnswer& answer);

} // namespace tarvo
