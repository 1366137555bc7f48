#pragma once

#include "panels/finishing/FinishedSetView.h"

#include <gtkmm/box.h>
#include <gtkmm/button.h>
#include <gtkmm/combobox.h>
#include <gtkmm/label.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace tarvo {

class ControlBindings;
class Nib;
struct PaperOutputSettings;

/// The finishing of the panel, its dialogs and a picture of the finished set.
class FinishingSection {
public:
    /// Takes the controls. The values and the bindings must outlive this.
    FinishingSection(Nib& nib, PaperOutputSettings& settings, ControlBindings& bindings);
    /// To be called when the nib has had all of them.
    void bind();

private:
    void bindFamily();
    void bindPicture();
    void choose(std::int32_t option);
    void runDialog(std::int32_t option);
    void setUpOffset();
    void take(const std::function<std::optional<FinishingChoice>(const FinishedSet&)>& ask);

    PaperOutputSettings& settings_;
    ControlBindings& bindings_;
    Glib::RefPtr<Gtk::ComboBox> family_;
    Glib::RefPtr<Gtk::Button> setup_;
    Glib::RefPtr<Gtk::Label> summary_;
    Glib::RefPtr<Gtk::Box> picture_;
    Glib::RefPtr<Gtk::Button> offset_;
    FinishedSetView view_;
    const std::shared_ptr<bool> alive_ = std::make_shared<bool>(true); // asked after dialogs
};

} // namespace tarvo
