#pragma once

#include "records/BackgroundFormsChoice.h"

#include <gtkmm/window.h>

#include <optional>

namespace tarvo {

class CFBundle;

/// Lets the user choose whether a job makes a form or is printed over one, and how that lies.
/// @param options  what is shown first, and the names of forms to choose from
/// @return what to accept; nothing when the user cancels or the bundle lacks the dialog
std::optional<BackgroundFormsChoice>
RunBackgroundFormsDialog(Gtk::Window* parent, const CFBundle& bundle,
                         const BackgroundFormsOptions& options);

} // namespace tarvo
