#include "panels/toolkit/ControlBindings.h"

#include "panels/toolkit/Guarded.h"
#include "panels/toolkit/Pictures.h"
#include "panels/toolkit/PopupButton.h"
#include "platform/cf/CFPropertyList.h"

#include <string>
#include <utility>

namespace tarvo {

void ControlBindings::ShowAll(const Functions& functions)
{
    for (const auto& show : functions) {
        show();
    }
}

// The handler may end all this.
std::function<void()> ControlBindings::whenUserActs(std::function<void()> handler) const
{
    return Guarded([state = std::weak_ptr(state_), handler = std::move(handler)] {
        if (state.expired() || !state.lock()->isAwake) {
            return;
        }
        handler();
        if (const auto present = state.lock()) {
            ShowAll(present->views);
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

void ControlBindings::bindRadioButton(const Glib::RefPtr<Gtk::RadioButton>& button,
                                      std::int32_t choice, std::int32_t& value)
{
    show_.emplace_back([button, choice, &value] {
        if (value == choice) { // the group's others follow
            button->set_active(true);
        }
    });
    button->signal_toggled().connect(whenUserActs([control = button.get(), choice, &value] {
        value = control->get_active() ? choice : value;
    }));
}

void ControlBindings::bindSpinButton(const Glib::RefPtr<Gtk::SpinButton>& button,
                                     std::int32_t& value)
{
    show_.emplace_back([button, &value] { button->set_value(value); });
    button->signal_value_changed().connect(
        whenUserActs([control = button.get(), &value] { value = control->get_value_as_int(); }));
}

void ControlBindings::bindMenu(const Glib::RefPtr<Gtk::ComboBox>& button,
                               std::function<Menu()> menu, std::function<void(std::int32_t)> choose)
{
    show_.emplace_back(
        [button, menu = std::move(menu)] { PopulatePopupButton(*button.get(), menu()); });
    button->signal_changed().connect(
        whenUserActs([control = button.get(), choose = std::move(choose)] {
            choose(GetPopupButtonTicketValue(*control, UnsetValue));
        }));
}

void ControlBindings::bindView(std::function<void()> show)
{
    state_->views.push_back(std::move(show));
}

void ControlBindings::bindPicture(const Glib::RefPtr<Gtk::Image>& image, const CFBundle& bundle,
                                  std::function<const char*()> fileName)
{
    bindView([image, &bundle, fileName = std::move(fileName), shown = std::string()]() mutable {
        if (const char* name = fileName(); shown != name) {
            shown = name;
            ShowPicture(bundle, *image.get(), shown);
        }
    });
}

// A value that cannot be shown must not leave the others deaf to the user.
void ControlBindings::show()
{
    const auto wake = [](State* state) { state->isAwake = true; };
    {
        const std::unique_ptr<State, decltype(wake)> asleep(state_.get(), wake);
        asleep->isAwake = false;
        ShowAll(show_);
    }
    ShowAll(state_->views);
}

} // namespace tarvo
