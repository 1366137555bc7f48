#include "panels/toolkit/MenuWidget.h"

#include "panels/toolkit/Guarded.h"

#include <gtkmm/checkmenuitem.h>
#include <gtkmm/label.h>
#include <gtkmm/separatormenuitem.h>

namespace tarvo {
namespace {

// A paper's name has up to 255 characters, more than a screen is wide.
constexpr int MostItemCharacters = 60;

void AppendItems(Gtk::Menu& widget, const Menu& menu, const MenuItemFunction& onChoose);

// What the user has chosen shows as a radio item does: of each menu it is one.
Gtk::MenuItem* MakeItem(const MenuItem& item)
{
    if (!item.isChecked) {
        return Gtk::make_managed<Gtk::MenuItem>(item.text);
    }
    auto* checked = Gtk::make_managed<Gtk::CheckMenuItem>(item.text);
    checked->set_draw_as_radio(true);
    checked->set_active(true);
    return checked;
}

void AppendItem(Gtk::Menu& widget, const MenuItem& item, const MenuItemFunction& onChoose)
{
    Gtk::MenuItem* const row = MakeItem(item);
    row->set_sensitive(item.isEnabled);
    if (auto* label = dynamic_cast<Gtk::Label*>(row->get_child())) {
        label->set_ellipsize(Pango::ELLIPSIZE_END);
        label->set_max_width_chars(MostItemCharacters);
    }
    if (item.submenu.empty()) {
        row->signal_activate().connect(Guarded([item, onChoose] { onChoose(item); }));
    } else {
        auto* submenu = Gtk::make_managed<Gtk::Menu>();
        AppendItems(*submenu, item.submenu, onChoose);
        row->set_submenu(*submenu);
    }
    widget.append(*row);
}

void AppendItems(Gtk::Menu& widget, const Menu& menu, const MenuItemFunction& onChoose)
{
    for (const MenuItem& item : menu) {
        if (item.isSeparator()) {
            widget.append(*Gtk::make_managed<Gtk::SeparatorMenuItem>());
        } else {
            AppendItem(widget, item, onChoose);
        }
    }
}

} // namespace

std::unique_ptr<Gtk::Menu> MakeMenuWidget(const Menu& menu, const MenuItemFunction& onChoose)
{
    auto widget = std::make_unique<Gtk::Menu>();
    AppendItems(*widget, menu, onChoose);
    widget->show_all();
    return widget;
}

} // namespace tarvo
