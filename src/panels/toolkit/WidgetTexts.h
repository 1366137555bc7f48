#pragma once

#include <gtkmm/button.h>

#include <functional>
#include <set>
#include <string>
#include <string_view>

namespace tarvo {

class CFBundle;

/// Calls the function for a widget and all that is in it, in the order of their places.
void ForEachWidget(Gtk::Widget& root, const std::function<void(Gtk::Widget&)>& function);

/// Replaces the texts of labels, buttons, titles, tooltips and accessible names, which are keys, by
/// the bundle's texts. What has no text keeps none.
void LocalizeTexts(const CFBundle& bundle, Gtk::Widget& root);

/// A text of any length for a label: a word, or a whole, that is longer than any that users enter
/// ends early, with an ellipsis. The toolkit takes time as the square of a word's length.
std::string ShownText(std::string_view text);

/// Gives each widget with a label of its own that label as accessible name, without the colon.
void NameForScreenReaders(Gtk::Widget& root);

/// Underlines a letter in each button's and control's label that no other one has, so that Alt and
/// the letter lead to it: a first letter of a word if there is one left. Letters that have been
/// given stay, but for those that are taken.
/// @param taken  letters that are in use, in lower case; those that are given are added
void AssignMnemonics(Gtk::Widget& root, std::set<gunichar>& taken);

/// The letters in use by what is on the screen in a window, in lower case.
std::set<gunichar> MnemonicsOnScreen(Gtk::Widget& window);

/// Gives a button a label; on the screen, with a letter underlined that nothing else there has. Off
/// the screen it gets one from AssignMnemonics.
void RelabelButton(Gtk::Button& button, const std::string& label);

} // namespace tarvo
