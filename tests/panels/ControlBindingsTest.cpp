#include "panels/toolkit/ControlBindings.h"

#include <gtest/gtest.h>
#include <gtkmm/builder.h>

#include <stdexcept>

namespace tarvo {
namespace {

TEST(ControlBindings, HearTheUserAfterAnExceptionWhileShowing)
{
    const auto builder = Gtk::Builder::create_from_string(
        "<interface><object class='GtkComboBox' id='Menu'/></interface>");
    const auto button = Glib::RefPtr<Gtk::ComboBox>::cast_dynamic(builder->get_object("Menu"));
    std::int32_t value = 0;
    bool fails = false;
    ControlBindings bindings;
    bindings.bindMenu(
        button,
        [&fails]() -> Menu {
            if (fails) {
                throw std::runtime_error("no menu");
            }
            Menu menu(2);
            menu[0].text = "One";
            menu[1].text = "Two";
            menu[1].value = 2;
            return menu;
        },
        [&value](std::int32_t chosen) { value = chosen; });
    bindings.show();
    fails = true;
    EXPECT_THROW(bindings.show(), std::runtime_error);
    button->set_active(1);
    EXPECT_EQ(value, 2);
}

} // namespace
} // namespace tarvo
