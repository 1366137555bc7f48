#pragma once

#include "settings/Menu.h"

#include <gtkmm/menu.h>

#include <functional>
#include <memory>

namespace tarvo {

using MenuItemFunction = std::function<void(const MenuItem&)>;

/// A menu of the core as the toolkit's, with its submenus. Separators and submenus choose nothing;
/// checked items show a mark.
/// @param onChoose  is given the chosen item when the menu is closed again
std::unique_ptr<Gtk::Menu> MakeMenuWidget(const Menu& menu, const MenuItemFunction& onChoose);

} // namespace tarvo
