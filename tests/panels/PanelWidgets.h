#pragma once

#include "PanelFixture.h"
#include "support/DialogScript.h"

#include <gtkmm/box.h>
#include <gtkmm/combobox.h>
#include <gtkmm/window.h>

namespace tarvo {

/// A panel in a window, and what is seen and done there.
class PanelWidgets : public PanelFixture {
protected:
    PanelWidgets() { window_.add(pane_); }

    std::unique_ptr<Panel> start(PanelGetter getter)
    {
        auto panel = getter();
        PanelDescription description;
        EXPECT_EQ(panel->prologue(description), StatusOk);
        EXPECT_NE(description.title, "");
        panel->initialize(pane_, &session_); // its status tells what the ticket lacks
        return panel;
    }
    template <typename Widget>
    Widget& control(const char* name)
    {
        auto* found = FindWidget<Widget>(pane_, name);
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    std::string shown(const char* menu) { return ShownText(control<Gtk::ComboBox>(menu)); }
    void choose(const char* menu, const std::string& text)
    {
        auto& button = control<Gtk::ComboBox>(menu);
        for (const auto& row : button.get_model()->children()) {
            Glib::ustring item;
            row->get_value(0, item);
            if (item.raw() == text) {
                button.set_active(row);
                return;
            }
        }
        ADD_FAILURE() << menu << " has no " << text;
    }
    CFPropertyList stored(std::string_view key) const { return ticket_->item(key)->value; }

    Gtk::Window window_;
    Gtk::Box pane_;
};

} // namespace tarvo
