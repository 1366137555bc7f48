#include "panels/toolkit/Nib.h"

#include "panels/toolkit/WidgetTexts.h"
#include "platform/bundle/CFBundle.h"

#include <glibmm/error.h>
#include <gtk/gtk.h>
#include <gtkmm/container.h>

#include <utility>

namespace tarvo {

namespace {

// Makes plain widgets. Those of a builder that gtkmm makes are of derived types, which stay alive
// when a dialog is destroyed: it would only be hidden.
Glib::RefPtr<Gtk::Builder> PlainBuilder()
{
    return Glib::wrap(gtk_builder_new());
}

} // namespace

std::optional<Nib> Nib::Open(const CFBundle& bundle, const std::string& name)
{
    return Open(bundle, name, "",
                [](Gtk::Builder& builder, const std::string& path, const std::string&) {
                    builder.add_from_file(path);
                });
}

std::optional<Nib> Nib::Open(const CFBundle& bundle, const std::string& name,
                             const std::string& window)
{
    return Open(bundle, name, window,
                [](Gtk::Builder& builder, const std::string& path, const std::string& wanted) {
                    builder.add_from_file(path, Glib::ustring(wanted));
                });
}

std::optional<Nib> Nib::Open(const CFBundle& bundle, const std::string& name,
                             const std::string& window, Reader read)
{
    const auto path = bundle.resourcePath(name + ".ui");
    if (!path) {
        return std::nullopt;
    }
    auto builder = PlainBuilder();
    try {
        read(*builder.get(), *path, window);
    } catch (const Glib::Error&) { // who opens a window says that there is none
        return std::nullopt;
    }
    return Nib(bundle, std::move(builder));
}

Nib::Nib(const CFBundle& bundle, Glib::RefPtr<Gtk::Builder> builder)
    : bundle_(&bundle), builder_(std::move(builder))
{
}

void Nib::prepare(Gtk::Widget& window) const
{
    LocalizeTexts(*bundle_, window);
    NameForScreenReaders(window);
}

void MoveInto(Gtk::Container& container, const Glib::RefPtr<Gtk::Widget>& widget)
{
    RemoveFromParent(widget);
    container.add(*widget.get());
}

void RemoveFromParent(const Glib::RefPtr<Gtk::Widget>& widget)
{
    if (Gtk::Container* parent = widget->get_parent()) {
        parent->remove(*widget.get());
    }
}

} // namespace tarvo
