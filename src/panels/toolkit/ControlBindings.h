#pragma once

#include "settings/Menu.h"

#include <gtkmm/combobox.h>
#include <gtkmm/togglebutton.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace tarvo {

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

    /// Shows all values in their controls, which sets none of them.
    void show();

private:
    // A handler that does nothing while the controls are being set, and once this has gone.
    std::function<void()> whenUserActs(std::function<void()> handler) const;

    // Whether the user may be acting; the handlers know it weakly.
    std::shared_ptr<bool> isAwake_ = std::make_shared<bool>(true);
    std::vector<std::function<void()>> show_;
};

} // namespace tarvo
