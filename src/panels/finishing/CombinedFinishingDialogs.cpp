#include "panels/finishing/CombinedFinishingDialogs.h"

#include "panels/finishing/FinishedSetView.h"
#include "panels/toolkit/ControlBindings.h"
#include "panels/toolkit/Dialogs.h"
#include "panels/toolkit/Nib.h"
#include "platform/bundle/CFBundle.h"
#include "records/FinishingMenu.h"
#include "settings/FinishingMaps.h"
#include "settings/SettingMenu.h"

#include <gtkmm/box.h>
#include <gtkmm/button.h>
#include <gtkmm/checkbutton.h>
#include <gtkmm/dialog.h>

namespace tarvo {
namespace {

namespace Family = FinishingFamily;

Menu Checked(Menu menu, std::int32_t value)
{
    CheckMenuItemWithValue(menu, value);
    return menu;
}

// What the user chooses from: what the printer offers and the job has.
struct Choices {
    const CFBundle& bundle;
    const FinishedSet& current;
    const std::vector<FinishingOffer>& offers;

    Menu positions(std::int32_t family) const
    {
        return FinishingPositions(bundle, offers, family, current.finishing);
    }
    // With the position checked; an unknown one is shown by no item and stays until one is chosen.
    Menu positionsAt(std::int32_t family, std::int32_t position) const
    {
        return Checked(positions(family), position);
    }
    Menu holeCounts() const { return HoleCounts(bundle, offers, current.finishing); }
    bool have(std::int32_t family) const
    {
        return HasFinishingPart(bundle, offers, family, current.finishing);
    }
};

// The radio buttons of the staples; the first is for none.
struct StapleButton {
    std::int32_t family;
    const char* name;
};

constexpr StapleButton StapleButtons[] = {
    {0,                    "TPDE1001"},
    {Family::OneStaple,    "TPDE1002"},
    {Family::TwoStaples,   "TPDE1003"},
    {Family::CenterStaple, "TPDE1004"},
};

// A pop-up button for the position of a part, with its label.
struct PositionControl {
    Glib::RefPtr<Gtk::ComboBox> button;
    Glib::RefPtr<Gtk::Widget> label;

    void enable(bool isEnabled) const
    {
        button->set_sensitive(isEnabled);
        label->set_sensitive(isEnabled);
    }
    void hide() const
    {
        button->hide();
        label->hide();
    }
};

PositionControl FindPosition(Nib& nib, const char* button, const char* label)
{
    return {nib.widget<Gtk::ComboBox>(button), nib.widget<Gtk::Widget>(label)};
}

// What both dialogs have.
struct Frame {
    Glib::RefPtr<Gtk::Dialog> dialog;
    Glib::RefPtr<Gtk::Box> previewBox;
    PositionControl punch;
    PositionControl holes;
};

FinishedSetView& AddPreview(const Frame& frame)
{
    constexpr int PreviewSize = 200;
    auto* preview = Gtk::make_managed<FinishedSetView>(PreviewSize, PreviewSize);
    preview->set_visible(true);
    frame.previewBox->pack_start(*preview, Gtk::PACK_SHRINK);
    return *preview;
}

// The dialog of several finishings at a time.
class MultipleDialog {
public:
    MultipleDialog(Nib& nib, const Choices& choices)
        : choices_(choices),
          chosen_(
              StartMultipleFinishing(choices.bundle, choices.offers, choices.current.finishing)),
          shownFamily_(chosen_.parts.stapleFamily),
          frame_{nib.window<Gtk::Dialog>("MultipleFinishing"), nib.widget<Gtk::Box>("TPDE1000"),
                 FindPosition(nib, "TPDE1008", "TPDE1009"),
                 FindPosition(nib, "TPDE1010", "TPDE1011")},
          staple_(FindPosition(nib, "TPDE1005", "TPDE1006")),
          zFold_(FindPosition(nib, "TPDE1013", "TPDE1014")),
          punches_(nib.widget<Gtk::CheckButton>("TPDE1007")),
          zFolds_(nib.widget<Gtk::CheckButton>("TPDE1012")),
          okButton_(nib.widget<Gtk::Button>("TPDE1099"))
    {
        for (const StapleButton& row : StapleButtons) {
            staples_.push_back(nib.widget<Gtk::RadioButton>(row.name));
        }
    }

    std::optional<FinishingChoice> run(Gtk::Window* parent)
    {
        hideWhatIsNotOffered();
        bind();
        bindings_.show();
        if (RunModalWindow(choices_.bundle, *frame_.dialog.get(), parent) != DialogOk) {
            return std::nullopt;
        }
        return ChosenFinishing(choices_.current.finishing, chosen_);
    }

private:
    void hideWhatIsNotOffered()
    {
        bool hasStaples = false;
        for (std::size_t place = 1; place < staples_.size(); ++place) {
            const bool isOffered = choices_.have(StapleButtons[place].family);
            staples_[place]->set_visible(isOffered);
            hasStaples = hasStaples || isOffered;
        }
        if (!hasStaples) {
            staples_.front()->hide();
            staple_.hide();
        }
        if (!choices_.have(Family::HolePunch)) {
            punches_->hide();
            frame_.punch.hide();
        }
        if (choices_.holeCounts().empty()) {
            frame_.holes.hide();
        }
        if (!choices_.have(Family::ZFold)) {
            zFolds_->hide();
            zFold_.hide();
        }
    }

    void bind()
    {
        for (std::size_t place = 0; place < staples_.size(); ++place) {
            bindings_.bindRadioButton(staples_[place], StapleButtons[place].family,
                                      chosen_.parts.stapleFamily);
        }
        bindings_.bindMenu(
            staple_.button, [this] { return staplePositions(); },
            [this](std::int32_t value) { chosen_.parts.staple = value; });
        bindings_.bindCheckBox(punches_, chosen_.hasHoles);
        bindings_.bindPopup(frame_.punch.button,
                            choices_.positionsAt(Family::HolePunch, chosen_.parts.punch),
                            chosen_.parts.punch);
        bindings_.bindPopup(frame_.holes.button, choices_.holeCounts(), chosen_.parts.holes);
        bindings_.bindCheckBox(zFolds_, chosen_.hasZFold);
        bindings_.bindPopup(zFold_.button, choices_.positionsAt(Family::ZFold, chosen_.parts.zFold),
                            chosen_.parts.zFold);
        bindings_.bindView([this, &preview = AddPreview(frame_)] { showRest(preview); });
    }

    // Of another family the position that comes first.
    Menu staplePositions()
    {
        const std::int32_t family = chosen_.parts.stapleFamily;
        if (shownFamily_ != family) {
            shownFamily_ = family;
            chosen_.parts.staple = CheckedValue(choices_.positions(family));
        }
        return choices_.positionsAt(family, chosen_.parts.staple);
    }

    // What follows from the choice.
    void showRest(FinishedSetView& preview)
    {
        if (shownFamily_ != chosen_.parts.stapleFamily) {
            bindings_.show(); // comes here again
            return;
        }
        const FinishingChoice& current = choices_.current.finishing;
        staple_.enable(chosen_.parts.stapleFamily != 0);
        frame_.punch.enable(chosen_.hasHoles != 0);
        frame_.holes.enable(chosen_.hasHoles != 0);
        zFold_.enable(chosen_.hasZFold != 0);
        okButton_->set_sensitive(ChosenFinishing(current, chosen_).has_value());
        preview.showSet(WithFinishing(choices_.current, FinishingSoFar(current, chosen_)),
                        choices_.bundle);
    }

    const Choices& choices_;
    MultipleFinishing chosen_;
    std::int32_t shownFamily_; // whose positions the pop-up button has
    Frame frame_;
    PositionControl staple_;
    PositionControl zFold_;
    std::vector<Glib::RefPtr<Gtk::RadioButton>> staples_;
    Glib::RefPtr<Gtk::CheckButton> punches_;
    Glib::RefPtr<Gtk::CheckButton> zFolds_;
    Glib::RefPtr<Gtk::Button> okButton_;
    ControlBindings bindings_;
};

} // namespace

std::optional<FinishingChoice> RunHolePunchDialog(Gtk::Window* parent, const CFBundle& bundle,
                                                  const FinishedSet& current,
                                                  const std::vector<FinishingOffer>& offers)
{
    auto nib = Nib::Open(bundle, "Finishing", "HolePunch");
    if (!nib) {
        return std::nullopt;
    }
    const Frame frame = {nib->window<Gtk::Dialog>("HolePunch"), nib->widget<Gtk::Box>("TPDE900"),
                         FindPosition(*nib, "TPDE901", "TPDE902"),
                         FindPosition(*nib, "TPDE903", "TPDE904")};
    if (!nib->isComplete()) {
        return std::nullopt;
    }
    nib.reset();
    const Choices choices = {bundle, current, offers};
    const Menu counts = choices.holeCounts();
    std::int32_t position =
        StartPosition(choices.positions(Family::HolePunch), Family::HolePunch, current.finishing);
    std::int32_t holes = StartHoles(counts, current.finishing);
    if (counts.empty()) {
        frame.holes.hide();
    }
    ControlBindings bindings;
    bindings.bindPopup(frame.punch.button, choices.positionsAt(Family::HolePunch, position),
                       position);
    bindings.bindPopup(frame.holes.button, counts, holes);
    bindings.bindView([&, &preview = AddPreview(frame)] {
        preview.showSet(WithFinishing(current, ChooseHoles(current.finishing, position, holes)),
                        bundle);
    });
    bindings.show();
    if (RunModalWindow(bundle, *frame.dialog.get(), parent) != DialogOk) {
        return std::nullopt;
    }
    return ChooseHoles(current.finishing, position, holes);
}

std::optional<FinishingChoice> RunMultipleFinishingDialog(Gtk::Window* parent,
                                                          const CFBundle& bundle,
                                                          const FinishedSet& current,
                                                          const std::vector<FinishingOffer>& offers)
{
    auto nib = Nib::Open(bundle, "Finishing", "MultipleFinishing");
    if (!nib) {
        return std::nullopt;
    }
    const Choices choices = {bundle, current, offers};
    MultipleDialog dialog(*nib, choices);
    if (!nib->isComplete()) {
        return std::nullopt;
    }
    nib.reset();
    return dialog.run(parent);
}

} // namespace tarvo
