#pragma once

#include "platform/printing/PMStatus.h"
#include "settings/JobContext.h"

#include <gtkmm/window.h>

#include <cstdint>

namespace tarvo {

class CFBundle;
class Stock;

/// Shows the user's named papers and the printer's, lets the user keep the former and choose one.
/// Changes of the library last, whatever the result.
/// @param context  for whom a stock is chosen
/// @param stock    the chosen paper's on DialogOk, else as it was
/// @param result   DialogOk or DialogCancel
/// @return StatusNoWindow when the dialog cannot be shown, which is as if it had been cancelled
OSStatus RunModalStockLibraryDialog(const CFBundle& bundle, Gtk::Window* parent, JobContext context,
                                    Stock& stock, std::int32_t& result);

} // namespace tarvo
