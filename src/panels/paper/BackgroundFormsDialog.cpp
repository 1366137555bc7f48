#include "panels/paper/BackgroundFormsDialog.h"

#include "panels/toolkit/DialogChecks.h"
#include "panels/toolkit/Dialogs.h"
#include "panels/toolkit/Guarded.h"
#include "panels/toolkit/Nib.h"
#include "panels/toolkit/SpinFields.h"
#include "panels/toolkit/TextFilters.h"
#include "platform/bundle/CFBundle.h"
#include "records/BackgroundFormsKeys.h"
#include "records/BackgroundFormsOptions.h"

#include <gtkmm/comboboxtext.h>
#include <gtkmm/entry.h>
#include <gtkmm/radiobutton.h>
#include <gtkmm/spinbutton.h>

#include <algorithm>
#include <cmath>

namespace tarvo {
namespace {

// Offsets are in 1/100 in or 1/10 mm; fields show whole units.
constexpr std::int32_t MostOffset = 9999;
constexpr guint InchDigits = 2;
constexpr guint MillimeterDigits = 1;

double PartsOfUnit(bool isInches)
{
    return isInches ? 100 : 10;
}

class BackgroundFormsDialog {
public:
    explicit BackgroundFormsDialog(Nib& nib)
        : dialog_(nib.window<Gtk::Dialog>("BackgroundFormsSetup")),
          creates_(nib.widget<Gtk::RadioButton>("TPDE1")),
          newForm_(nib.widget<Gtk::ComboBoxText>("TPDE2")),
          merges_(nib.widget<Gtk::RadioButton>("TPDE3")),
          existingForm_(nib.widget<Gtk::ComboBoxText>("TPDE4")),
          cyclePages_(nib.widget<Gtk::SpinButton>("TPDE5")),
          inches_(nib.widget<Gtk::RadioButton>("TPDE6")),
          millimeters_(nib.widget<Gtk::RadioButton>("TPDE7")),
          xOffset_(nib.widget<Gtk::SpinButton>("TPDE8")),
          yOffset_(nib.widget<Gtk::SpinButton>("TPDE9")),
          creation_(nib.widget<Gtk::Widget>("TPDE11")),
          merge_(nib.widget<Gtk::Widget>("TPDE12"))
    {
    }

    std::optional<BackgroundFormsChoice> run(Gtk::Window* parent, const CFBundle& bundle,
                                             const BackgroundFormsOptions& options)
    {
        choice_ = ChoiceFromBackgroundForms(options);
        fill(*newForm_.get(), options.newForms(), choice_.newForm);
        fill(*existingForm_.get(), options.existingForms(), choice_.existingForm);
        (choice_.mergesWithForm ? merges_ : creates_)->set_active(true);
        (choice_.isInches ? inches_ : millimeters_)->set_active(true);
        cyclePages_->set_value(choice_.cyclePages);
        showOffsets();
        complete();
        connectSignals();
        AcceptOnlyIf(*dialog_.get(), [this] {
            take();
            return IsAcceptable(choice_);
        });
        const bool isOk = RunModalWindow(bundle, *dialog_.get(), parent) == DialogOk;
        return isOk ? std::optional(choice_) : std::nullopt;
    }

private:
    void fill(Gtk::ComboBoxText& box, const FormHistory& names, const std::string& name)
    {
        for (const std::string& former : names.names()) {
            box.append(former);
        }
        Gtk::Entry& entry = *box.get_entry();
        entry.set_text(name);
        entry.set_activates_default(true);
        entry.get_accessible()->set_name(box.get_accessible()->get_name());
        LimitInputLength(&entry, LongestFormNameInput);
        entry.signal_changed().connect(Guarded([this] { complete(); }));
    }

    void connectSignals()
    {
        for (const auto& field : {cyclePages_, xOffset_, yOffset_}) {
            KeepNumberOfEmptyField(*field.get());
        }
        merges_->signal_toggled().connect(Guarded([this] { complete(); }));
        inches_->signal_toggled().connect(Guarded([this] {
            take();
            SwitchOffsetUnit(choice_, inches_->get_active());
            showOffsets();
        }));
    }

    void showOffsets()
    {
        const double parts = PartsOfUnit(choice_.isInches);
        for (const auto& [field, offset] :
             {std::pair(xOffset_, choice_.xOffset), std::pair(yOffset_, choice_.yOffset)}) {
            field->set_digits(choice_.isInches ? InchDigits : MillimeterDigits);
            field->set_range(-MostOffset / parts, MostOffset / parts);
            field->set_increments(1 / parts, 10 / parts);
            field->set_value(offset / parts);
        }
    }

    // The stored offset stays unless the field differs from what it shows of it.
    std::int32_t offsetIn(Gtk::SpinButton& field, std::int32_t stored) const
    {
        field.update();
        const auto entered = static_cast<std::int32_t>(
            std::lround(field.get_value() * PartsOfUnit(choice_.isInches)));
        return entered == std::clamp(stored, -MostOffset, MostOffset) ? stored : entered;
    }

    void take()
    {
        cyclePages_->update();
        choice_.mergesWithForm = merges_->get_active();
        choice_.newForm = newForm_->get_entry()->get_text();
        choice_.existingForm = existingForm_->get_entry()->get_text();
        choice_.cyclePages = cyclePages_->get_value_as_int();
        choice_.xOffset = offsetIn(*xOffset_.get(), choice_.xOffset);
        choice_.yOffset = offsetIn(*yOffset_.get(), choice_.yOffset);
    }

    // Only what counts can be set.
    void complete()
    {
        BackgroundFormsChoice choice = choice_;
        choice.mergesWithForm = merges_->get_active();
        choice.newForm = newForm_->get_entry()->get_text();
        choice.existingForm = existingForm_->get_entry()->get_text();
        creation_->set_sensitive(!choice.mergesWithForm);
        merge_->set_sensitive(choice.mergesWithForm);
        dialog_->set_response_sensitive(Gtk::RESPONSE_OK, IsAcceptable(choice));
    }

    Glib::RefPtr<Gtk::Dialog> dialog_;
    Glib::RefPtr<Gtk::RadioButton> creates_;
    Glib::RefPtr<Gtk::ComboBoxText> newForm_;
    Glib::RefPtr<Gtk::RadioButton> merges_;
    Glib::RefPtr<Gtk::ComboBoxText> existingForm_;
    Glib::RefPtr<Gtk::SpinButton> cyclePages_;
    Glib::RefPtr<Gtk::RadioButton> inches_;
    Glib::RefPtr<Gtk::RadioButton> millimeters_;
    Glib::RefPtr<Gtk::SpinButton> xOffset_;
    Glib::RefPtr<Gtk::SpinButton> yOffset_;
    Glib::RefPtr<Gtk::Widget> creation_;
    Glib::RefPtr<Gtk::Widget> merge_;
    BackgroundFormsChoice choice_;
};

} // namespace

std::optional<BackgroundFormsChoice> RunBackgroundFormsDialog(Gtk::Window* parent,
                                                              const CFBundle& bundle,
                                                              const BackgroundFormsOptions& options)
{
    auto nib = Nib::Open(bundle, "BackgroundFormsSetup");
    if (!nib) {
        return std::nullopt;
    }
    BackgroundFormsDialog dialog(*nib);
    if (!nib->isComplete()) {
        return std::nullopt;
    }
    nib.reset();
    return dialog.run(parent, bundle, options);
}

} // namespace tarvo
