#pragma once

#include "settings/Menu.h"

#include <gtkmm/combobox.h>

#include <cstdint>
#include <functional>

namespace tarvo {

// Pop-up buttons show a menu of the core; each item has the menu item's value as its reference.

/// Replaces the items. Nothing is chosen afterwards unless an item is checked. Turning the wheel
/// over the button scrolls what is around it and chooses nothing.
void PopulatePopupButton(Gtk::ComboBox& button, const Menu& menu);

/// Chooses the first item of the value; leaves the choice as it is when there is none. Nothing for
/// a null button.
void SetPopupButtonToTicketValue(Gtk::ComboBox* button, std::int32_t value);

/// The value of the chosen item; `otherwise` when nothing is chosen.
std::int32_t GetPopupButtonTicketValue(const Gtk::ComboBox& button, std::int32_t otherwise);

/// Calls the function when the user opens the menu and chooses the item that is chosen already, of
/// which "changed" says nothing: "Custom…" is to ask again.
void WhenChosenAgain(Gtk::ComboBox& button, std::function<void()> function);

} // namespace tarvo
