#include "panels/toolkit/Pictures.h"

#include "platform/bundle/CFBundle.h"

#include <gdk/gdk.h>
#include <gdkmm/pixbuf.h>
#include <glibmm/error.h>
#include <gtk/gtk.h>

#include <filesystem>
#include <memory>
#include <optional>

namespace tarvo {
namespace {

constexpr int PixelsPerPoint = 2; // of pictures made of pixels

void Show(Gtk::Image& image, const Glib::RefPtr<Gdk::Pixbuf>& picture, int pixelsPerPoint)
{
    const std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface(
        gdk_cairo_surface_create_from_pixbuf(picture->gobj(), pixelsPerPoint, nullptr),
        cairo_surface_destroy);
    gtk_image_set_from_surface(image.gobj(), surface.get());
}

std::optional<std::string> DrawingOf(const CFBundle& bundle, const std::string& fileName)
{
    const std::string name = std::filesystem::path(fileName).stem();
    return bundle.resourcePath("pictures/" + name + ".svg");
}

// With as many pixels as the screen has for it. Not every desktop can read drawings.
bool ShowDrawing(Gtk::Image& image, const std::string& path)
{
    int width = 0;
    int height = 0;
    const int scale = image.get_scale_factor();
    if (gdk_pixbuf_get_file_info(path.c_str(), &width, &height) == nullptr) {
        return false;
    }
    try {
        Show(image, Gdk::Pixbuf::create_from_file(path, width * scale, height * scale), scale);
        return true;
    } catch (const Glib::Error&) { // there is a picture made of pixels
        return false;
    }
}

} // namespace

bool ShowPicture(const CFBundle& bundle, Gtk::Image& image, const std::string& fileName)
{
    image.clear();
    const auto path = bundle.resourcePath(fileName);
    if (!path) {
        return false;
    }
    const auto drawing = DrawingOf(bundle, fileName);
    if (drawing && ShowDrawing(image, *drawing)) {
        return true;
    }
    try {
        Show(image, Gdk::Pixbuf::create_from_file(*path), PixelsPerPoint);
        return true;
    } catch (const Glib::Error&) { // as if it were missing
        return false;
    }
}

} // namespace tarvo
