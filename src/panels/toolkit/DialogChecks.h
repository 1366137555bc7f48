#pragma once

#include <gtkmm/dialog.h>
#include <gtkmm/entry.h>

#include <cstddef>
#include <functional>
#include <string>

namespace tarvo {

class CFBundle;

/// Asks the function when the user presses OK; the dialog stays open when it returns false. What
/// the function uses must be there as long as the dialog runs.
void AcceptOnlyIf(Gtk::Dialog& dialog, const std::function<bool()>& accept);

/// Limits the field's characters, and disables OK while it is empty or blank.
void RequireText(Gtk::Dialog& dialog, Gtk::Entry& field, std::size_t limit);

/// Asks for a decision. Return and Escape both mean that the user does not want it.
/// @param question  for people, as are the details
/// @param details   what is to be known for the decision
/// @return whether the user wants it
bool AskUser(const CFBundle& bundle, Gtk::Window* parent, const std::string& question,
             const char* yesKey, const char* noKey, const std::string& details = "");

/// Tells what is wrong; the message is for people, unlike that of DisplayNotice.
void TellUser(const CFBundle& bundle, Gtk::Window* parent, const char* headerKey,
              const std::string& message);

} // namespace tarvo
