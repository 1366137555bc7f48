#pragma once

#include <gtkmm/box.h>
#include <gtkmm/button.h>
#include <gtkmm/image.h>
#include <gtkmm/label.h>

#include <functional>

namespace tarvo {

struct PaperConflict;

/// Tells below a control what the printer cannot do of what is chosen there, with a button that
/// chooses something else. It takes no room while there is nothing to tell.
class ConflictNotice {
public:
    /// @param place    where it is shown
    /// @param resolve  is called when the button is pressed
    ConflictNotice(Glib::RefPtr<Gtk::Box> place, const std::function<void()>& resolve);

    /// @param conflict  null when there is none
    void show(const PaperConflict* conflict);

private:
    Glib::RefPtr<Gtk::Box> place_;
    Gtk::Box line_;
    Gtk::Image picture_;
    Gtk::Label text_;
    Gtk::Button remedy_;
};

} // namespace tarvo
