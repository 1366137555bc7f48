#pragma once

#include <gtkmm/button.h>
#include <gtkmm/combobox.h>
#include <gtkmm/image.h>

#include <memory>

namespace tarvo {

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
    void setUp();
    void setUpBackgroundForms();

    PaperOutputSettings& settings_;
    ControlBindings& bindings_;
    Glib::RefPtr<Gtk::ComboBox> type_;
    Glib::RefPtr<Gtk::Image> picture_;
    Glib::RefPtr<Gtk::Button> setup_;
    const std::shared_ptr<bool> alive_ = std::make_shared<bool>(true); // asked after dialogs
};

} // namespace tarvo
