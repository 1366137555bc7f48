#pragma once

#include "settings/Menu.h"

#include <gtkmm/combobox.h>
#include <gtkmm/image.h>
#include <gtkmm/radiobutton.h>
#include <gtkmm/spinbutton.h>
#include <gtkmm/togglebutton.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace tarvo {

class CFBundle;

/// Controls that show values of a panel and set them when the user changes the control. The values
/// must outlive this; the controls may go before it or stay.
class ControlBindings {
public:
    ControlBindings() = default;
    ControlBindings(const ControlBindings&) = delete;
    ControlBindings& operator=(const ControlBindings&) = delete;

    /// Fills the pop-up button and binds its choice to the value. A value that the menu lacks
    /// leaves the choice as it is.
    void bindPopup(const Glib::RefPtr<Gtk::ComboBox>& button, const Menu& menu,
                   std::int32_t& value);
    /// 0 is off, everything else on; what the user sets is 0 or 1.
    void bindCheckBox(const Glib::RefPtr<Gtk::ToggleButton>& box, std::int32_t& value);

    /// The button of a group that stands for the choice: active while the value is the choice.
    void bindRadioButton(const Glib::RefPtr<Gtk::RadioButton>& button, std::int32_t choice,
                         std::int32_t& value);
    /// Numbers out of the button's range are not shown and stay until the user sets one.
    void bindSpinButton(const Glib::RefPtr<Gtk::SpinButton>& button, std::int32_t& value);

    /// Fills the pop-up button with a menu that depends on values, anew whenever they are shown;
    /// its checked item is the choice.
    /// @param choose  is told the value that the user has chosen
    void bindMenu(const Glib::RefPtr<Gtk::ComboBox>& button, std::function<Menu()> menu,
                  std::function<void(std::int32_t)> choose);
    /// For what follows from the values, such as a picture: is called whenever they are shown, and
    /// when the user has changed one.
    void bindView(std::function<void()> show);

    /// Shows a picture of the bundle; its file is read again only when it is another one.
    void bindPicture(const Glib::RefPtr<Gtk::Image>& image, const CFBundle& bundle,
                     std::function<const char*()> fileName);

    /// Shows all values in their controls, which sets none of them.
    void show();
    /// Shows what follows from the values, for a change that no bound control has made.
    void showViews() { ShowAll(state_->views); }

private:
    using Functions = std::vector<std::function<void()>>;
    struct State {
        bool isAwake = true; // the user may be acting
        Functions views;
    };

    static void ShowAll(const Functions& functions);
    // A handler that does nothing while the controls are being set, and once this has gone.
    std::function<void()> whenUserActs(std::function<void()> handler) const;

    std::shared_ptr<State> state_ = std::make_shared<State>(); // the handlers know it weakly
    Functions show_;
};

} // namespace tarvo
