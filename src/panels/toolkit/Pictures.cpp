#include "panels/toolkit/Pictures.h"

#include "platform/bundle/CFBundle.h"

#include <gdk/gdk.h>
#include <gdkmm/general.h>
#include <gdkmm/pixbuf.h>
#include <glibmm/error.h>
#include <gtk/gtk.h>

namespace tarvo {
namespace {

constexpr int PixelsPerPoint = 2;

} // namespace

bool ShowPicture(const CFBundle& bundle, Gtk::Image& image, const std::string& fileName)
{
    image.clear();
    const auto path = bundle.resourcePath(fileName);
    if (!path) {
        return false;
    }
    try {
        const auto picture = Gdk::Pixbuf::create_from_file(*path);
        const Cairo::RefPtr<Cairo::Surface> surface(new Cairo::Surface(
            gdk_cairo_surface_create_from_pixbuf(picture->gobj(), PixelsPerPoint, nullptr), true));
        image.set(surface);
        return true;
    } catch (const Glib::Error&) { // as if it were missing
        return false;
    }
}

} // namespace tarvo
