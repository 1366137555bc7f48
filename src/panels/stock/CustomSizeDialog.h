#pragma once

#include "platform/printing/PMStatus.h"
#include "records/CustomSizeEntry.h"

#include <gtkmm/window.h>

#include <cstdint>
#include <string>

namespace tarvo {

class CFBundle;

/// Asks for a custom size, with the limits of the dialog's printer and in the unit of last time.
/// @param width   in 1/100 mm, as is length; UnsetValue for none yet. Both set on DialogOk alone
/// @param result  DialogOk or DialogCancel
/// @return StatusNoWindow when the dialog cannot be shown, which is as if it had been cancelled
OSStatus RunModalCustomStockSizeDialog(const CFBundle& bundle, Gtk::Window* parent,
                                       std::int32_t& width, std::int32_t& length,
                                       std::int32_t& result);

/// What a refused size tells: which sizes the printer takes, in the unit of the fields.
std::string CustomSizeMessage(const CFBundle& bundle, const CustomSizeEntry& entry);

} // namespace tarvo
