#pragma once

#include "panels/paper/JobTypeDetails.h"

#include <gtkmm/window.h>

#include <optional>

namespace tarvo {

class CFBundle;

/// Lets the user set what belongs to the job's type. OK leaves it open, with a notice, while
/// something is wrong.
/// @return what to accept; nothing when the user cancels or the bundle lacks the dialog
std::optional<JobTypeDetails> RunSaveJobAsDialog(Gtk::Window* parent, const CFBundle& bundle,
                                                 const JobTypeDetails& current);

} // namespace tarvo
