#include "panels/toolkit/Nib.h"

#include "panels/toolkit/WidgetTexts.h"
#include "platform/bundle/CFBundle.h"

#include <glibmm/error.h>
#include <gtkmm/container.h>

#include <utility>

namespace tarvo {
namespace {

constexpr const char* DescriptionMark = "tarvo-of-description";

} // namespace

std::optional<Nib> Nib::Open(const CFBundle& bundle, const std::string& name)
{
    const auto path = bundle.resourcePath(name + ".ui");
    if (!path) {
        return std::nullopt;
    }
    auto builder = Gtk::Builder::create();
    try {
        builder->add_from_file(*path);
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
    g_object_set_data(G_OBJECT(window.gobj()), DescriptionMark, GINT_TO_POINTER(1));
    LocalizeTexts(*bundle_, window);
    NameForScreenReaders(window);
}

bool Nib::IsOfDescription(const Gtk::Widget& widget)
{
    return g_object_get_data(G_OBJECT(widget.gobj()), DescriptionMark) != nullptr;
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
