#pragma once

#include "panels/toolkit/WidgetTexts.h"

#include <gtest/gtest.h>
#include <gtkmm/button.h>
#include <gtkmm/combobox.h>
#include <gtkmm/label.h>
#include <gtkmm/window.h>

#include <chrono>
#include <functional>
#include <set>
#include <string>
#include <vector>

namespace tarvo {

/// The name of a widget in its dialog description; "" for one that has none.
inline std::string NameInDescription(Gtk::Widget& widget)
{
    const char* name = gtk_buildable_get_name(GTK_BUILDABLE(widget.gobj()));
    return name == nullptr ? "" : name;
}

/// The widget of a name in a dialog description; null when there is none of that type.
template <typename Widget>
Widget* FindWidget(Gtk::Widget& root, const std::string& name)
{
    Widget* found = nullptr;
    ForEachWidget(root, [&](Gtk::Widget& widget) {
        if (NameInDescription(widget) == name) {
            found = dynamic_cast<Widget*>(&widget);
        }
    });
    return found;
}

/// All visible widgets of a type, in the order of their places.
template <typename Widget>
std::vector<Widget*> AllOf(Gtk::Widget& root)
{
    std::vector<Widget*> found;
    ForEachWidget(root, [&found](Gtk::Widget& widget) {
        auto* wanted = dynamic_cast<Widget*>(&widget);
        if (wanted != nullptr && wanted->get_visible()) {
            found.push_back(wanted);
        }
    });
    return found;
}

/// Handles what GTK has waiting.
inline void TurnMainLoop()
{
    while (g_main_context_iteration(nullptr, FALSE) != FALSE) {
    }
}

/// The text that a pop-up button shows; "" when nothing is chosen.
inline std::string ShownText(Gtk::ComboBox& button)
{
    Glib::ustring text;
    if (const auto row = button.get_active()) {
        row->get_value(0, text);
    }
    return text;
}

/// Turns the main loop until the condition holds.
/// @return false when it does not for so long that it never will
inline bool TurnUntil(const std::function<bool()>& holds)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!holds() && std::chrono::steady_clock::now() < end) {
        TurnMainLoop();
        g_usleep(1'000);
    }
    return holds();
}

/// Presses a key as somebody at the window would; it goes where the focus is.
inline void PressKey(Gtk::Window& window, guint key, guint modifiers = 0)
{
    GdkWindow* const place = gtk_widget_get_window(GTK_WIDGET(window.gobj()));
    GdkDisplay* const display = gdk_window_get_display(place);
    GdkKeymapKey* keys = nullptr;
    int count = 0;
    ASSERT_TRUE(
        gdk_keymap_get_entries_for_keyval(gdk_keymap_get_for_display(display), key, &keys, &count));
    for (const GdkEventType type : {GDK_KEY_PRESS, GDK_KEY_RELEASE}) {
        GdkEvent* const event = gdk_event_new(type);
        event->key.window = GDK_WINDOW(g_object_ref(place));
        event->key.send_event = TRUE;
        event->key.keyval = key;
        event->key.state = modifiers;
        event->key.hardware_keycode = static_cast<guint16>(keys[0].keycode);
        gdk_event_set_device(event, gdk_seat_get_keyboard(gdk_display_get_default_seat(display)));
        gtk_widget_event(GTK_WIDGET(window.gobj()), event);
        gdk_event_free(event);
    }
    g_free(keys);
}

/// Makes the window that which has the keyboard. Without a window manager none has it, and then the
/// focus does not leave a check box.
inline void GiveKeyboardTo(Gtk::Window& window)
{
    GdkEvent* const event = gdk_event_new(GDK_FOCUS_CHANGE);
    event->focus_change.window =
        GDK_WINDOW(g_object_ref(gtk_widget_get_window(GTK_WIDGET(window.gobj()))));
    event->focus_change.send_event = TRUE;
    event->focus_change.in = TRUE;
    gtk_widget_event(GTK_WIDGET(window.gobj()), event);
    gdk_event_free(event);
}

/// Goes from control to control until the focus is on the widget or within it.
inline void TabTo(Gtk::Window& window, Gtk::Widget* widget)
{
    constexpr int MostControls = 30;
    ASSERT_NE(widget, nullptr);
    GiveKeyboardTo(window);
    const auto isThere = [&window, widget] {
        Gtk::Widget* focus = window.get_focus();
        return focus != nullptr && (focus == widget || focus->is_ancestor(*widget));
    };
    for (int turn = 0; turn < MostControls && !isThere(); ++turn) {
        PressKey(window, GDK_KEY_Tab);
    }
    EXPECT_TRUE(isThere()) << NameInDescription(*widget);
}

/// Presses the keys of a text's characters, which are ASCII.
inline void TypeText(Gtk::Window& window, const std::string& text)
{
    for (const char character : text) {
        PressKey(window, static_cast<guint>(character));
    }
}

/// The letter that is underlined in the label of a button; it is pressed with Alt.
inline guint LetterOf(Gtk::Button& button)
{
    const auto labels = AllOf<Gtk::Label>(button);
    return labels.empty() ? guint{GDK_KEY_VoidSymbol}
                          : gtk_label_get_mnemonic_keyval(labels.back()->gobj());
}

// What the focus can be on; inside a pop-up button that is the pop-up button.
inline bool TakesFocus(Gtk::Widget& widget)
{
    const bool isPopup = dynamic_cast<Gtk::ComboBox*>(&widget) != nullptr;
    const bool isInPopup = widget.get_ancestor(GTK_TYPE_COMBO_BOX) != nullptr;
    return isPopup || (widget.get_can_focus() && !isInPopup);
}

// The title of a column stands in a button that nobody can reach or press.
inline bool IsLabelOfControl(Gtk::Label& label)
{
    const Gtk::Widget* button = label.get_ancestor(GTK_TYPE_BUTTON);
    const bool isTitle = button != nullptr && !button->get_can_focus() &&
                         label.get_ancestor(GTK_TYPE_TREE_VIEW) != nullptr;
    const bool isInButton =
        button != nullptr && !isTitle && label.get_ancestor(GTK_TYPE_COMBO_BOX) == nullptr;
    return label.get_mnemonic_widget() != nullptr || (isInButton && !label.get_text().empty());
}

/// What is wrong for somebody who works by keyboard or listens to the screen: controls without a
/// name, and labels without a letter, or with the letter of another.
inline std::vector<std::string> AccessibilityFaults(Gtk::Widget& root)
{
    std::vector<std::string> faults;
    std::set<guint> letters;
    ForEachWidget(root, [&](Gtk::Widget& widget) {
        if (!widget.get_visible()) {
            return;
        }
        const char* name = atk_object_get_name(gtk_widget_get_accessible(widget.gobj()));
        if (TakesFocus(widget) && (name == nullptr || *name == '\0')) {
            faults.push_back("no name: " + NameInDescription(widget));
        }
        auto* label = dynamic_cast<Gtk::Label*>(&widget);
        if (label == nullptr || !IsLabelOfControl(*label)) {
            return;
        }
        const guint key = gtk_label_get_mnemonic_keyval(label->gobj());
        if (key == GDK_KEY_VoidSymbol || !letters.insert(gdk_keyval_to_lower(key)).second) {
            faults.push_back("no letter of its own: " + label->get_text());
        }
    });
    return faults;
}

} // namespace tarvo
