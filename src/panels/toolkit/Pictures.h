#pragma once

#include <gtkmm/image.h>

#include <string>

namespace tarvo {

class CFBundle;

/// Shows a picture of the bundle at half its size in pixels, so that it is sharp on a screen of
/// twice the density too. A missing or broken picture leaves the image empty.
/// @return whether there is one
bool ShowPicture(const CFBundle& bundle, Gtk::Image& image, const std::string& fileName);

} // namespace tarvo
