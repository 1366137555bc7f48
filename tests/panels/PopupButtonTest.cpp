#include "panels/toolkit/PopupButton.h"

#include "platform/cf/CFPropertyList.h"
#include "support/Widgets.h"

namespace tarvo {
namespace {

constexpr std::int32_t Nothing = -7;

Menu StapleMenu()
{
    Menu menu(4);
    menu[0].text = "Printer Default";
    menu[0].value = UnsetValue;
    menu[1].text = "-";
    menu[2].text = "Left";
    menu[2].value = 10;
    menu[3].text = "Left Again";
    menu[3].value = 10;
    menu[3].isEnabled = false;
    return menu;
}

TEST(PopupButton, ChoosesByTheTicketsValue)
{
    Gtk::ComboBox button;
    SetPopupButtonToTicketValue(&button, 10);
    SetPopupButtonToTicketValue(nullptr, 10);
    EXPECT_EQ(GetPopupButtonTicketValue(button, Nothing), Nothing) << "it has no items yet";
    PopulatePopupButton(button, StapleMenu());
    EXPECT_EQ(GetPopupButtonTicketValue(button, Nothing), Nothing);
    // name, value to set, value and text afterwards
    const std::tuple<const char*, std::int32_t, std::int32_t, const char*> steps[] = {
        {"none has it, none is chosen",   11,         Nothing,    ""               },
        {"the first of two",              10,         10,         "Left"           },
        {"none has it, the choice stays", 11,         10,         "Left"           },
        {"a separator's is no choice",    0,          10,         "Left"           },
        {"unset",                         UnsetValue, UnsetValue, "Printer Default"},
    };
    for (const auto& [name, value, expected, text] : steps) {
        SCOPED_TRACE(name);
        SetPopupButtonToTicketValue(&button, value);
        EXPECT_EQ(GetPopupButtonTicketValue(button, Nothing), expected);
        EXPECT_EQ(ShownText(button), text);
    }
}

TEST(PopupButton, ShowsTheCheckedItemOfItsNewestMenu)
{
    Gtk::ComboBox button;
    PopulatePopupButton(button, StapleMenu());
    Menu menu = StapleMenu();
    menu[3].isChecked = true;
    PopulatePopupButton(button, menu);
    EXPECT_EQ(ShownText(button), "Left Again");
    EXPECT_EQ(button.get_model()->children().size(), menu.size());
    EXPECT_EQ(button.get_cells().size(), 1U) << "each item once";
}

// Who scrolls through a panel must not change what the pointer comes by.
TEST(PopupButton, LeavesTheWheelToWhatScrolls)
{
    Gtk::Window window;
    Gtk::ComboBox button;
    window.add(button);
    PopulatePopupButton(button, StapleMenu());
    SetPopupButtonToTicketValue(&button, UnsetValue);
    window.show_all();
    GdkEvent* event = gdk_event_new(GDK_SCROLL);
    event->scroll.window = GDK_WINDOW(g_object_ref(window.get_window()->gobj()));
    event->scroll.direction = GDK_SCROLL_DOWN;
    EXPECT_FALSE(gtk_widget_event(GTK_WIDGET(button.gobj()), event));
    gdk_event_free(event);
    EXPECT_EQ(GetPopupButtonTicketValue(button, Nothing), UnsetValue);
}

} // namespace
} // namespace tarvo
