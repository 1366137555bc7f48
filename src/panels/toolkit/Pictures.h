#pragma once

#include <gtkmm/image.h>

#include <string>

namespace tarvo {

class CFBundle;

/// Shows a picture of the bundle at half its size in pixels. Where pictures/ has a drawing of its
/// name, that is shown instead, with the pixels of the screen that the image is on now. A missing
/// or broken picture leaves the image empty.
/// @param fileName  such as "Fax.gif", whose drawing is pictures/Fax.svg
/// @return whether there is one
bool ShowPicture(const CFBundle& bundle, Gtk::Image& image, const std::string& fileName);

} // namespace tarvo
