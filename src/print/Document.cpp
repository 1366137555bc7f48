#include "print/Document.h"

#include "platform/files/Descriptor.h"
#include "platform/files/FileContents.h"
#include "print/Texts.h"

#include <gtk/gtk.h>

#include <cairo-pdf.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <numbers>

namespace tarvo {
namespace {

constexpr std::size_t InputMaximumBytes = std::size_t{1024} * 1024 * 1024;
constexpr std::string_view PdfMark = "%PDF-";
constexpr std::size_t PdfMarkWithin = 1'024; // bytes; some programs write others before it

bool IsPdf(const std::string& path, std::string& reason)
{
    auto reader = FileReader::Open(path, InputMaximumBytes, reason);
    std::string beginning(PdfMarkWithin, '\0');
    const auto size =
        reader ? reader->read(beginning.data(), beginning.size(), reason) : std::nullopt;
    return size && beginning.substr(0, *size).find(PdfMark) != std::string::npos;
}

// A file's name may be any bytes, a text of the toolkit's only UTF-8.
std::string DisplayName(const std::string& file)
{
    const std::unique_ptr<char, decltype(&g_free)> name(g_filename_display_basename(file.c_str()),
                                                        g_free);
    return name.get();
}

std::optional<TemporaryFile> CopyInput(std::string& reason)
{
    const auto contents = ReadDescriptorContents(STDIN_FILENO, InputMaximumBytes, reason);
    auto copy = contents ? TemporaryFile::Create(reason) : std::nullopt;
    if (copy && !ReplaceFileContents(copy->path(), *contents, reason)) {
        copy.reset();
    }
    return copy;
}

struct SurfaceDeleter {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
struct ContextDeleter {
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};

// Turns the page as it lies into the sheet as the printer pulls it in.
void TurnPage(cairo_t* context, GtkPageOrientation orientation, double width, double height)
{
    constexpr double QuarterTurn = std::numbers::pi / 2;
    switch (orientation) {
    case GTK_PAGE_ORIENTATION_LANDSCAPE:
        cairo_translate(context, 0, height);
        cairo_rotate(context, -QuarterTurn);
        break;
    case GTK_PAGE_ORIENTATION_REVERSE_PORTRAIT:
        cairo_translate(context, width, height);
        cairo_rotate(context, 2 * QuarterTurn);
        break;
    case GTK_PAGE_ORIENTATION_REVERSE_LANDSCAPE:
        cairo_translate(context, width, 0);
        cairo_rotate(context, QuarterTurn);
        break;
    default:
        break;
    }
}

// As large as fits between the margins, in their middle.
void DrawFitted(cairo_t* context, GtkPageSetup* setup, const GdkPixbuf* picture)
{
    const double pictureWidth = gdk_pixbuf_get_width(picture);
    const double pictureHeight = gdk_pixbuf_get_height(picture);
    const double width = gtk_page_setup_get_page_width(setup, GTK_UNIT_POINTS);
    const double height = gtk_page_setup_get_page_height(setup, GTK_UNIT_POINTS);
    const double scale = std::min(width / pictureWidth, height / pictureHeight);
    cairo_translate(context,
                    gtk_page_setup_get_left_margin(setup, GTK_UNIT_POINTS) +
                        (width - pictureWidth * scale) / 2,
                    gtk_page_setup_get_top_margin(setup, GTK_UNIT_POINTS) +
                        (height - pictureHeight * scale) / 2);
    cairo_scale(context, scale, scale);
    gdk_cairo_set_source_pixbuf(context, picture, 0, 0);
    cairo_paint(context);
}

// False with `reason` filled.
bool WritePage(const std::string& path, GtkPageSetup* setup, const GdkPixbuf* picture,
               std::string& reason)
{
    GtkPaperSize* paper = gtk_page_setup_get_paper_size(setup);
    const double width = gtk_paper_size_get_width(paper, GTK_UNIT_POINTS);
    const double height = gtk_paper_size_get_height(paper, GTK_UNIT_POINTS);
    const std::unique_ptr<cairo_surface_t, SurfaceDeleter> surface(
        cairo_pdf_surface_create(path.c_str(), width, height));
    {
        const std::unique_ptr<cairo_t, ContextDeleter> context(cairo_create(surface.get()));
        TurnPage(context.get(), gtk_page_setup_get_orientation(setup), width, height);
        DrawFitted(context.get(), setup, picture);
        cairo_show_page(context.get());
    }
    cairo_surface_finish(surface.get());
    const cairo_status_t status = cairo_surface_status(surface.get());
    if (status != CAIRO_STATUS_SUCCESS) {
        reason = std::string("cannot draw the page: ") + cairo_status_to_string(status);
    }
    return status == CAIRO_STATUS_SUCCESS;
}

} // namespace

std::optional<TemporaryFile> TemporaryFile::Create(std::string& reason)
{
    std::string path = std::string(g_get_tmp_dir()) + "/tarvo-print-XXXXXX";
    const Descriptor file(g_mkstemp_full(path.data(), O_RDWR | O_CLOEXEC, 0600));
    if (!file.valid()) {
        reason = std::string("cannot create a file in ") + g_get_tmp_dir() + ": " +
                 std::strerror(errno); // NOLINT(concurrency-mt-unsafe): one thread
        return std::nullopt;
    }
    return TemporaryFile(std::move(path));
}

TemporaryFile::~TemporaryFile()
{
    if (!path_.empty()) {
        static_cast<void>(unlink(path_.c_str()));
    }
}

void PixbufDeleter::operator()(GdkPixbuf* picture) const
{
    g_object_unref(picture);
}

std::optional<Document> Document::Open(const std::string& file, std::string& reason)
{
    Document document;
    document.title_ = DisplayName(file);
    document.path_ = file;
    if (file == "-") {
        document.title_ = InputTitle();
        document.copy_ = CopyInput(reason);
        if (!document.copy_) {
            return std::nullopt;
        }
        document.path_ = document.copy_->path();
    }
    if (IsPdf(document.path_, reason)) {
        return document;
    }
    if (!reason.empty()) {
        reason = "cannot read: " + reason;
        return std::nullopt;
    }
    GError* error = nullptr;
    document.picture_.reset(gdk_pixbuf_new_from_file(document.path_.c_str(), &error));
    if (!document.picture_) {
        reason = std::string("neither a PDF document nor a picture: ") + error->message;
        g_error_free(error);
        return std::nullopt;
    }
    // Cameras write pictures as they lie in the camera, and beside them how that was held.
    document.picture_.reset(gdk_pixbuf_apply_embedded_orientation(document.picture_.get()));
    return document;
}

std::optional<std::string> Document::pdf(GtkPageSetup* setup, std::string& reason)
{
    if (!picture_) {
        return path_;
    }
    page_ = TemporaryFile::Create(reason);
    if (!page_ || !WritePage(page_->path(), setup, picture_.get(), reason)) {
        return std::nullopt;
    }
    return page_->path();
}

} // namespace tarvo
