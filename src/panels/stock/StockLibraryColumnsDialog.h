#pragma once

#include "platform/printing/PMStatus.h"
#include "stocklibrary/StockLibraryView.h"

#include <gtkmm/window.h>

#include <cstdint>

namespace tarvo {

class CFBundle;

/// Asks which columns the stock library shows; the name is always among them.
/// @param view    changed on DialogOk
/// @param result  DialogOk or DialogCancel
/// @return StatusNoWindow when the dialog cannot be shown, which is as if it had been cancelled
OSStatus RunModalStockLibraryColumnsDialog(const CFBundle& bundle, Gtk::Window* parent,
                                           StockLibraryView& view, std::int32_t& result);

} // namespace tarvo
