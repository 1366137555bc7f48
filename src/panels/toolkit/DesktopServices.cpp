#include "panels/toolkit/DesktopServices.h"

#include "panels/PanelEnvironment.h"
#include "platform/bundle/CFBundle.h"

#include <glibmm/error.h>
#include <gtk/gtk.h>
#include <gtkmm/filechoosernative.h>

namespace tarvo {
namespace {

constexpr int UnknownError = -1; // some errors of the desktop have the number 0

Glib::RefPtr<Gtk::FileChooserNative> MakeChooser(const CFBundle& bundle, Gtk::Window* parent,
                                                 const char* titleKey,
                                                 Gtk::FileChooserAction action)
{
    const Glib::ustring title = bundle.localizedString(titleKey);
    // The desktop's own words for the buttons.
    auto chooser = Gtk::FileChooserNative::create(title, action, "", "");
    if (parent != nullptr) {
        chooser->set_transient_for(*parent);
        // It goes with the parent, as when the user cancels.
        g_signal_connect_object(parent->gobj(), "destroy", G_CALLBACK(gtk_native_dialog_hide),
                                chooser->gobj(), G_CONNECT_SWAPPED);
    }
    chooser->set_modal(true);
    return chooser;
}

std::optional<std::string> RunSaveChooser(const CFBundle& bundle, Gtk::Window* parent,
                                          const char* titleKey)
{
    const auto chooser = MakeChooser(bundle, parent, titleKey, Gtk::FILE_CHOOSER_ACTION_SAVE);
    chooser->set_do_overwrite_confirmation(true);
    if (chooser->run() != GTK_RESPONSE_ACCEPT || chooser->get_filename().empty()) {
        return std::nullopt; // also for a place that has no path
    }
    return chooser->get_filename();
}

std::vector<std::string> RunOpenChooser(const CFBundle& bundle, Gtk::Window* parent,
                                        const char* titleKey,
                                        const std::vector<FileFilter>& filters)
{
    const auto chooser = MakeChooser(bundle, parent, titleKey, Gtk::FILE_CHOOSER_ACTION_OPEN);
    chooser->set_select_multiple(true);
    for (const FileFilter& row : filters) {
        const auto filter = Gtk::FileFilter::create();
        filter->set_name(bundle.localizedString(row.key));
        for (const char* pattern : row.patterns) {
            filter->add_pattern(pattern);
        }
        if (row.patterns.empty()) {
            filter->add_pattern("*");
        }
        chooser->add_filter(filter);
    }
    if (chooser->run() != GTK_RESPONSE_ACCEPT) {
        return {};
    }
    return chooser->get_filenames();
}

int OpenURI(Gtk::Window* parent, const std::string& uri)
{
    GError* raw = nullptr;
    gtk_show_uri_on_window(parent == nullptr ? nullptr : parent->gobj(), uri.c_str(),
                           GDK_CURRENT_TIME, &raw);
    if (raw == nullptr) {
        return 0;
    }
    const Glib::Error error(raw);
    return error.code() != 0 ? error.code() : UnknownError;
}

} // namespace

DesktopServices& TheDesktopServices()
{
    static DesktopServices services{RunSaveChooser, RunOpenChooser, OpenURI};
    return services;
}

std::optional<std::string> ChooseFileToSave(const CFBundle& bundle, Gtk::Window* parent,
                                            const char* titleKey)
{
    const DialogHandle dialog;
    auto path = TheDesktopServices().chooseFileToSave(bundle, parent, titleKey);
    return dialog.restore() ? path : std::nullopt;
}

std::vector<std::string> ChooseFilesToOpen(const CFBundle& bundle, Gtk::Window* parent,
                                           const char* titleKey,
                                           const std::vector<FileFilter>& filters)
{
    const DialogHandle dialog;
    auto paths = TheDesktopServices().chooseFilesToOpen(bundle, parent, titleKey, filters);
    return dialog.restore() ? paths : std::vector<std::string>();
}

} // namespace tarvo
