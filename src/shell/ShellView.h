#pragma once

#include "settings/Menu.h"

#include <gtkmm/combobox.h>
#include <gtkmm/container.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <set>
#include <string>

namespace tarvo {

class CFBundle;

/// What the user does with the view. Their statuses are of no use to GTK.
struct ShellViewHandlers {
    std::function<void(std::int32_t control)> controlHit;
    std::function<void(std::uint32_t command)> commandProcess;
};

/// The pane: a pop-up button and arrows over the panel that is shown. The print dialog may destroy
/// its widgets at any time; this then does nothing any more.
class ShellView {
public:
    /// @param failedStep  filled with the step that could not be done when there is no view
    static std::unique_ptr<ShellView> Load(const CFBundle& bundle, std::string& failedStep);
    /// For Load: what has not been loaded is of no use.
    ShellView() = default;
    ShellView(const ShellView&) = delete;
    ShellView& operator=(const ShellView&) = delete;
    /// Takes the view out of the print dialog.
    ~ShellView();

    /// Shows the view in the print dialog's pane.
    void embed(GtkContainer* parentPane);
    /// Fills the pop-up button and connects the controls.
    void connect(const Menu& panels, const ShellViewHandlers& handlers);
    void setPopupValue(std::int32_t tabIndex);
    std::int32_t popupValue(std::int32_t otherwise) const;
    /// Hides what changes while panels are switched, or shows it again.
    void setSwitchGroupVisible(bool isVisible);
    /// Underlines a letter in each label of a panel, other letters than those on the screen outside
    /// of the panels.
    void assignMnemonics(Gtk::Widget& pane) const;

    Gtk::Container& panelContainer() const { return *container_.get(); }

private:
    Glib::RefPtr<Gtk::Widget> content_;
    Glib::RefPtr<Gtk::Widget> switchGroup_;
    Glib::RefPtr<Gtk::Container> container_;
    Glib::RefPtr<Gtk::ComboBox> popup_;
    Glib::RefPtr<Gtk::Widget> previous_;
    Glib::RefPtr<Gtk::Widget> next_;
    Glib::RefPtr<Gtk::Widget> help_;
    std::set<gunichar> lettersOutside_; // of the panels
};

} // namespace tarvo
