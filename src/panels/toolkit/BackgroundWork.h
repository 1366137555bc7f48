#pragma once

#include <gtkmm/window.h>

#include <functional>

namespace tarvo {

/// Does work that may wait for a disk in a task of its own and returns when it is done; meanwhile
/// the application goes on showing itself, with the window insensitive. The work must own what it
/// uses: when the window is closed meanwhile, nobody waits for its end. The print dialog that was
/// current before is so again afterwards.
/// @param window  null: the work is done at once
/// @return false when the window or the print dialog has gone, or the work failed with an exception
bool RunInBackground(Gtk::Window* window, const std::function<void()>& work);

} // namespace tarvo
