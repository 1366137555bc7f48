#pragma once

#include "records/StockDialogRules.h"

#include <gtkmm/spinbutton.h>

#include <cstdint>

namespace tarvo {

/// Shows the stored number, or the nearest or proposed one, and bounds what can be entered. The
/// field keeps its number when it is left empty.
void ShowSpin(Gtk::SpinButton& spin, const SpinRange& range, std::int32_t stored);

/// A field that is left empty goes back to its former number.
void KeepNumberOfEmptyField(Gtk::SpinButton& spin);

/// The number, with what was typed last.
std::int32_t EnteredInSpin(Gtk::SpinButton& spin);

} // namespace tarvo
