#pragma once

#include "platform/printing/PMStatus.h"

#include <gtkmm/dialog.h>
#include <gtkmm/window.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tarvo {

class CFBundle;

/// Which button ended a dialog.
inline constexpr std::int32_t DialogOk = 1;
inline constexpr std::int32_t DialogCancel = 2; // also its close box and Escape

/// A dialog description that the bundle lacks, or that cannot be read.
inline constexpr OSStatus StatusNoWindow = -10960;

/// Shows a dialog until it is answered; everything else in the window waits. It is gone afterwards
/// with all that its controls hold, which is to be read while it runs; a number that is being typed
/// counts then. And the print dialog that was
/// current before is so again. The application may end that one meanwhile: then callers, who hear
/// of it as DialogCancel, touch nothing that went with it.
/// @param parent  may be null
/// @return DialogOk or DialogCancel
std::int32_t RunModalWindow(const CFBundle& bundle, Gtk::Dialog& dialog, Gtk::Window* parent);

/// Tells what is wrong and what to do about it; both are keys of the bundle's texts.
void DisplayNotice(const CFBundle& bundle, Gtk::Window* parent, const char* headerKey,
                   const char* messageKey);

/// Asks for a text of the user's own.
/// @param limit   of its characters
/// @param text    what the field shows first; the user's text on DialogOk, else nullopt
/// @param result  DialogOk or DialogCancel
/// @return StatusNoWindow when the dialog cannot be shown, which is as if it had been cancelled
OSStatus RunModalCustomValueDialog(const CFBundle& bundle, Gtk::Window* parent, std::int32_t limit,
                                   std::optional<std::string>& text, std::int32_t& result);

} // namespace tarvo
