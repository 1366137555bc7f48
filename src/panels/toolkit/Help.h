#pragma once

#include "platform/printing/PMStatus.h"

#include <gtkmm/window.h>

#include <string>

namespace tarvo {

class CFBundle;

inline constexpr OSStatus StatusNoFile = -43;

/// Opens the help with the desktop's default program. Help lies in the bundle's folder of
/// resources "help", maybe in that of a language.
/// @param page    of the help book, such as "advanced.html"; null: its first
/// @param anchor  a place in the page; null: its beginning
/// @return StatusBadArgument when the bundle has no help book, StatusNoFile when it lacks the page,
/// else what opening it gave
OSStatus DisplayHelp(const CFBundle* bundle, Gtk::Window* parent, const char* page,
                     const char* anchor);

/// @return StatusOk also without a bundle; StatusNoFile when it has no folder of help
OSStatus RegisterMyHelpBook(const CFBundle* bundle);

} // namespace tarvo
