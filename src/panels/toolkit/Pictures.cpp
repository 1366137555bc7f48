#include "panels/toolkit/Pictures.h"

#include "platform/bundle/CFBundle.h"

#include <gdk/gdk.h>
#include <gdkmm/pixbuf.h>
#include <glibmm/error.h>
#include <gtk/gtk.h>

#include <memory>

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
        const std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface(
            gdk_cairo_surface_create_from_pixbuf(picture->gobj(), PixelsPerPoint, nullptr),
            cairo_surface_destroy);
        gtk_image_set_from_surface(image.gobj(), surface.get());
        return true;
    } catch (const Glib::Error&) { // as if it were missing
        return false;
    }
}

} // namespace tarvo
