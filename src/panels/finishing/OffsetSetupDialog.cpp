#include "panels/finishing/FinishedSetView.h"
#include "panels/finishing/FinishingDialogs.h"
#include "panels/toolkit/ControlBindings.h"
#include "panels/toolkit/Dialogs.h"
#include "panels/toolkit/Nib.h"
#include "panels/toolkit/SpinFields.h"
#include "platform/bundle/CFBundle.h"
#include "settings/FinishingMaps.h"

#include <gtkmm/box.h>
#include <gtkmm/checkbutton.h>
#include <gtkmm/dialog.h>

#include <algorithm>

namespace tarvo {
namespace {

// Buttons of the values of OffsetMap.
struct OffsetButton {
    std::int32_t value;
    const char* name;
    bool hasSubsets;
};

constexpr OffsetButton OffsetButtons[] = {
    {1, "TPDE1101", false},
    {2, "TPDE1102", false},
    {3, "TPDE1103", false},
    {4, "TPDE1104", true },
    {5, "TPDE1105", true },
};

constexpr std::int32_t MostPages = 9999;

bool HasSubsets(std::int32_t offset)
{
    return std::any_of(
        std::begin(OffsetButtons), std::end(OffsetButtons),
        [offset](const OffsetButton& row) { return row.value == offset && row.hasSubsets; });
}

struct OffsetControls {
    Glib::RefPtr<Gtk::Dialog> dialog;
    Glib::RefPtr<Gtk::Box> previewBox;
    Glib::RefPtr<Gtk::CheckButton> subset;
    Glib::RefPtr<Gtk::SpinButton> pages;
    Glib::RefPtr<Gtk::CheckButton> slipSheets;
    std::vector<Glib::RefPtr<Gtk::RadioButton>> offsets;
};

std::optional<OffsetControls> OpenOffsetControls(const CFBundle& bundle)
{
    auto nib = Nib::Open(bundle, "Finishing", "OffsetSetup");
    if (!nib) {
        return std::nullopt;
    }
    OffsetControls controls = {
        nib->window<Gtk::Dialog>("OffsetSetup"),   nib->widget<Gtk::Box>("TPDE1100"),
        nib->widget<Gtk::CheckButton>("TPDE1106"), nib->widget<Gtk::SpinButton>("TPDE1107"),
        nib->widget<Gtk::CheckButton>("TPDE1108"), {}};
    for (const OffsetButton& row : OffsetButtons) {
        controls.offsets.push_back(nib->widget<Gtk::RadioButton>(row.name));
    }
    if (!nib->isComplete()) {
        return std::nullopt;
    }
    controls.pages->set_range(1, MostPages);
    controls.pages->set_increments(1, 10);
    KeepNumberOfEmptyField(*controls.pages.get());
    return controls;
}

void HideWhatIsNotOffered(const OffsetControls& controls, const OffsetOffers& offers)
{
    for (const auto& button : controls.offsets) {
        button->set_visible(offers.offset);
    }
    controls.subset->set_visible(offers.offset);
    controls.pages->set_visible(offers.offset);
    controls.slipSheets->set_visible(offers.slipSheets);
}

// The dialog's values while it is open.
struct OffsetChoice {
    explicit OffsetChoice(const FinishingChoice& finishing)
        : offset(finishing.offset),
          hasSubset(finishing.offsetSubset == 0 ? 0 : 1),
          pages(std::clamp(finishing.pagesPerSubset, 1, MostPages)),
          hasSlipSheets(finishing.slipSheet == SlipSheetsOn ? 1 : 0)
    {
        if (TicketToUI(OffsetMap, offset) < 0) {
            offset = OffsetMap[0].value;
        }
    }

    // Whether the pages of a subset count.
    bool isOfSubsets() const { return HasSubsets(offset) && hasSubset != 0; }

    // The job's finishing with what the user has changed. The rest stays as it was, also what the
    // controls cannot show.
    FinishingChoice storedIn(FinishingChoice finishing) const
    {
        const OffsetChoice former(finishing);
        if (hasSubset != former.hasSubset) {
            finishing.offsetSubset = hasSubset;
        }
        if (offset != former.offset) {
            finishing.offset = offset;
            finishing.offsetSubset = HasSubsets(offset) ? hasSubset : 0;
        }
        if (pages != former.pages || (isOfSubsets() && !former.isOfSubsets())) {
            finishing.pagesPerSubset = pages;
        }
        if (hasSlipSheets != former.hasSlipSheets) {
            finishing.slipSheet = hasSlipSheets == 0 ? SlipSheetsOff : SlipSheetsOn;
        }
        return finishing;
    }

    std::int32_t offset;
    std::int32_t hasSubset;
    std::int32_t pages;
    std::int32_t hasSlipSheets;
};

void Bind(ControlBindings& bindings, const OffsetControls& controls, OffsetChoice& chosen)
{
    for (std::size_t place = 0; place < controls.offsets.size(); ++place) {
        bindings.bindRadioButton(controls.offsets[place], OffsetButtons[place].value,
                                 chosen.offset);
    }
    bindings.bindCheckBox(controls.subset, chosen.hasSubset);
    bindings.bindSpinButton(controls.pages, chosen.pages);
    bindings.bindCheckBox(controls.slipSheets, chosen.hasSlipSheets);
}

} // namespace

std::optional<FinishingChoice> RunOffsetSetupDialog(Gtk::Window* parent, const CFBundle& bundle,
                                                    const FinishedSet& current,
                                                    const OffsetOffers& offers)
{
    constexpr int PreviewSize = 180;
    if (!offers.offset && !offers.slipSheets) {
        return std::nullopt;
    }
    const auto controls = OpenOffsetControls(bundle);
    if (!controls) {
        return std::nullopt;
    }
    HideWhatIsNotOffered(*controls, offers);
    auto* preview = Gtk::make_managed<FinishedSetView>(PreviewSize, PreviewSize);
    preview->set_visible(true);
    controls->previewBox->pack_start(*preview, Gtk::PACK_SHRINK);
    OffsetChoice chosen(current.finishing);
    ControlBindings bindings;
    Bind(bindings, *controls, chosen);
    bindings.bindView([&, preview] {
        preview->showSet(WithFinishing(current, chosen.storedIn(current.finishing)), bundle);
        controls->subset->set_sensitive(HasSubsets(chosen.offset));
        controls->pages->set_sensitive(HasSubsets(chosen.offset) && chosen.hasSubset != 0);
    });
    bindings.show();
    if (RunModalWindow(bundle, *controls->dialog.get(), parent) != DialogOk) {
        return std::nullopt;
    }
    return chosen.storedIn(current.finishing);
}

} // namespace tarvo
