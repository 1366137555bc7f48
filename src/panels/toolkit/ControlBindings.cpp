#include "panels/toolkit/ControlBindings.h"

#include "panels/toolkit/Guarded.h"
#include "panels/toolkit/PopupButton.h"

#include <utility>

namespace tarvo {

std::function<void()> ControlBindings::whenUserActs(std::function<void()> handler) const
{
    return Guarded([isAwake = std::weak_ptr(isAwake_), handler = std::move(handler)] {
        if (const auto awake = isAwake.lock(); awake && *awake) {
            handler();
        }
    });
}

// The handlers hold no reference to their control, which would keep it for ever.
void ControlBindings::bindPopup(const Glib::RefPtr<Gtk::ComboBox>& button, const Menu& menu,
                                std::int32_t& value)
{
    PopulatePopupButton(*button.get(), menu);
    show_.emplace_back([button, &value] { SetPopupButtonToTicketValue(button.get(), value); });
    button->signal_changed().connect(whenUserActs(
        [control = button.get(), &value] { value = GetPopupButtonTicketValue(*control, value); }));
}

void ControlBindings::bindCheckBox(const Glib::RefPtr<Gtk::ToggleButton>& box, std::int32_t& value)
{
    show_.emplace_back([box, &value] { box->set_active(value != 0); });
    box->signal_toggled().connect(
        whenUserActs([control = box.get(), &value] { value = control->get_active() ? 1 : 0; }));
}

void ControlBindings::show()
{
    *isAwake_ = false;
    for (const auto& showValue : show_) {
        showValue();
    }
    *isAwake_ = true;
}

} // namespace tarvo
