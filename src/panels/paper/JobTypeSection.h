#pragma once

#include "settings/Menu.h"

#include <gtkmm/button.h>
#include <gtkmm/combobox.h>
#include <gtkmm/image.h>

#include <cstdint>
#include <memory>
#include <optional>

namespace tarvo {

class CFBundle;
class ControlBindings;
class Nib;
struct PaperOutputSettings;

/// The job type of the panel, and the dialogs for what belongs to it.
class JobTypeSection {
public:
    /// Takes the controls. The values and the bindings must outlive this.
    JobTypeSection(Nib& nib, PaperOutputSettings& settings, ControlBindings& bindings);
    /// To be called when the nib has had all of them.
    void bind();

private:
    Menu menu(const CFBundle& bundle);
    void setUp();
    void setUpBackgroundForms();

    PaperOutputSettings& settings_;
    ControlBindings& bindings_;
    Glib::RefPtr<Gtk::ComboBox> type_;
    Glib::RefPtr<Gtk::Image> picture_;
    Glib::RefPtr<Gtk::Button> setup_;
    std::optional<std::int32_t> brought_; // type of a ticket that the printer does not offer
    const std::shared_ptr<bool> alive_ = std::make_shared<bool>(true); // asked after dialogs
};

} // namespace tarvo
