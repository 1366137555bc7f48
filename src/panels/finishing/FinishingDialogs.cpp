#include "panels/finishing/FinishingDialogs.h"

#include "panels/finishing/CombinedFinishingDialogs.h"
#include "panels/finishing/FinishedSetView.h"
#include "panels/toolkit/Dialogs.h"
#include "panels/toolkit/Guarded.h"
#include "panels/toolkit/Nib.h"
#include "platform/bundle/CFBundle.h"
#include "records/FinishingMenu.h"
#include "settings/FinishingMaps.h"
#include "settings/SettingMenu.h"

#include <gtkmm/box.h>
#include <gtkmm/dialog.h>
#include <gtkmm/label.h>
#include <gtkmm/radiobutton.h>

#include <algorithm>
#include <functional>

namespace tarvo {
namespace {

namespace Family = FinishingFamily;

// Families whose dialog has one radio button for each position, and the box that takes them.
struct PositionDialogRow {
    std::int32_t option;
    const char* window;
    const char* box;
};

constexpr PositionDialogRow PositionDialogMap[] = {
    {Family::OneStaple,    "OneStaple",        "TPDE100"},
    {Family::TwoStaples,   "TwoStaples",       "TPDE200"},
    {Family::CenterStaple, "CenterStaple",     "TPDE300"},
    {Family::Bind,         "Bind",             "TPDE400"},
    {Family::Fold,         "Fold",             "TPDE500"},
    {Family::ZFold,        "ZFold",            "TPDE600"},
    {Family::AdvancedFold, "AdvancedFold",     "TPDE700"},
    {Family::Booklet,      "BookletFinishing", "TPDE800"},
};

const PositionDialogRow* PositionDialogOf(std::int32_t option)
{
    const auto* row =
        std::find_if(std::begin(PositionDialogMap), std::end(PositionDialogMap),
                     [option](const PositionDialogRow& each) { return each.option == option; });
    return row == std::end(PositionDialogMap) ? nullptr : row;
}

// A position to choose, and how the set looks with it.
struct PicturedChoice {
    std::int32_t value;
    std::string text;
    FinishedSet set;
};

constexpr int PictureSize = 84;
constexpr int SpaceBetweenChoices = 6;
constexpr int CharactersOfLabel = 22; // before it wraps; sooner where the screen is small

// A radio button with the picture before its text.
Gtk::RadioButton& AddRadioButton(Gtk::Box& column, const PicturedChoice& choice,
                                 const CFBundle& bundle)
{
    auto* button = Gtk::make_managed<Gtk::RadioButton>();
    auto* content = Gtk::make_managed<Gtk::Box>(Gtk::ORIENTATION_HORIZONTAL, 12);
    auto* picture = Gtk::make_managed<FinishedSetView>(PictureSize, PictureSize);
    auto* label = Gtk::make_managed<Gtk::Label>(choice.text);
    picture->showSet(choice.set, bundle);
    button->get_accessible()->set_description(DescribeFinishedSet(choice.set, bundle));
    label->set_line_wrap(true);
    label->set_xalign(0);
    label->set_max_width_chars(CharactersOfLabel);
    label->set_mnemonic_widget(*button);
    content->pack_start(*picture, Gtk::PACK_SHRINK);
    content->pack_start(*label);
    button->add(*content);
    column.pack_start(*button, Gtk::PACK_SHRINK);
    return *button;
}

// With large text columns beside each other are wider than a small screen: then they come below
// each other.
void ArrangeColumns(Gtk::Box& box)
{
    constexpr int RoomOnSmallScreen = 960;
    int least = 0;
    int natural = 0;
    box.get_preferred_width(least, natural);
    if (least > RoomOnSmallScreen) {
        box.set_orientation(Gtk::ORIENTATION_VERTICAL);
        box.set_spacing(SpaceBetweenChoices);
    }
}

bool HasChoice(const std::vector<PicturedChoice>& choices, std::int32_t value)
{
    return std::any_of(choices.begin(), choices.end(),
                       [value](const PicturedChoice& choice) { return choice.value == value; });
}

// One button of a group is always on: this one where none of those to be seen is.
void AddHiddenButton(Gtk::Box& box, Gtk::RadioButton::Group& group)
{
    auto* hidden = Gtk::make_managed<Gtk::RadioButton>();
    hidden->set_group(group);
    hidden->set_no_show_all(true);
    box.pack_start(*hidden, Gtk::PACK_SHRINK);
}

// Fills the box, column by column; the button of the chosen value is on and has the focus. An
// unknown value has none.
void AddChoices(Gtk::Box& box, const std::vector<PicturedChoice>& choices, std::int32_t chosen,
                const std::function<void(std::int32_t)>& choose, const CFBundle& bundle)
{
    constexpr std::size_t MostInAColumn = 4;
    Gtk::Box* column = nullptr;
    Gtk::RadioButton::Group group;
    if (!HasChoice(choices, chosen)) {
        AddHiddenButton(box, group);
    }
    for (std::size_t place = 0; place < choices.size(); ++place) {
        if (place % MostInAColumn == 0) {
            column = Gtk::make_managed<Gtk::Box>(Gtk::ORIENTATION_VERTICAL, SpaceBetweenChoices);
            box.pack_start(*column);
        }
        Gtk::RadioButton& button = AddRadioButton(*column, choices[place], bundle);
        button.set_group(group);
        if (choices[place].value == chosen) {
            button.set_active(true);
            button.grab_focus();
        }
        button.signal_toggled().connect(Guarded([choose, &button, value = choices[place].value] {
            if (button.get_active()) {
                choose(value);
            }
        }));
    }
    box.show_all_children();
    ArrangeColumns(box);
}

/// @param chosen  the value that is on first; while it is unknown, OK waits for a choice
/// @return what the user chooses
std::optional<std::int32_t> RunPositionDialog(Gtk::Window* parent, const CFBundle& bundle,
                                              const PositionDialogRow& row,
                                              const std::vector<PicturedChoice>& choices,
                                              std::int32_t chosen)
{
    auto nib = Nib::Open(bundle, "Finishing", row.window);
    if (!nib) {
        return std::nullopt;
    }
    const auto dialog = nib->window<Gtk::Dialog>(row.window);
    const auto box = nib->widget<Gtk::Box>(row.box);
    if (!nib->isComplete()) {
        return std::nullopt;
    }
    nib.reset();
    const auto choose = [&chosen, window = dialog.get()](std::int32_t value) {
        chosen = value;
        window->set_response_sensitive(Gtk::RESPONSE_OK, true);
    };
    dialog->set_response_sensitive(Gtk::RESPONSE_OK, HasChoice(choices, chosen));
    AddChoices(*box.get(), choices, chosen, choose, bundle);
    if (RunModalWindow(bundle, *dialog.get(), parent) != DialogOk) {
        return std::nullopt;
    }
    return chosen;
}

std::optional<FinishingChoice> RunFamilyDialog(Gtk::Window* parent, const CFBundle& bundle,
                                               const PositionDialogRow& row,
                                               const FinishedSet& current,
                                               const std::vector<FinishingOffer>& offers)
{
    const Menu positions = FinishingPositions(bundle, offers, row.option, current.finishing);
    std::vector<PicturedChoice> choices;
    for (const MenuItem& item : positions) {
        const auto finishing = ChooseFinishing(current.finishing, row.option, item.value);
        choices.push_back({item.value, item.text, WithFinishing(current, finishing)});
    }
    const std::int32_t first = StartPosition(positions, row.option, current.finishing);
    const auto chosen = RunPositionDialog(parent, bundle, row, choices, first);
    return chosen ? std::optional(ChooseFinishing(current.finishing, row.option, *chosen))
                  : std::nullopt;
}

std::optional<FinishingChoice> RunCustomFinishingDialog(Gtk::Window* parent, const CFBundle& bundle,
                                                        FinishingChoice finishing)
{
    constexpr std::int32_t LongestName = 255;
    std::optional<std::string> text = finishing.customText;
    std::int32_t result = DialogCancel;
    RunModalCustomValueDialog(bundle, parent, LongestName, text, result);
    if (result != DialogOk || !text) {
        return std::nullopt;
    }
    finishing.customText = *text;
    return ChooseFinishing(std::move(finishing), Family::Custom);
}

// A booklet's folding as a finishing shows it: the layout's own where no family is chosen.
FinishedSet WithBookletFold(FinishedSet set, std::int32_t fold)
{
    set.finishing.option = Family::PrinterDefault;
    set.finishing.bookletFold = fold;
    set.finishing.bookletLayout = true;
    return set;
}

} // namespace

std::optional<FinishingChoice> RunFinishingDialog(Gtk::Window* parent, const CFBundle& bundle,
                                                  std::int32_t option, const FinishedSet& current,
                                                  const std::vector<FinishingOffer>& offers)
{
    if (!HasFinishingChoices(bundle, offers, option, current.finishing)) {
        return std::nullopt;
    }
    if (const auto* row = PositionDialogOf(option)) {
        return RunFamilyDialog(parent, bundle, *row, current, offers);
    }
    if (option == Family::Custom) {
        return RunCustomFinishingDialog(parent, bundle, current.finishing);
    }
    if (option == Family::HolePunch) {
        return RunHolePunchDialog(parent, bundle, current, offers);
    }
    if (PartsOfFinishing(option)) {
        return RunMultipleFinishingDialog(parent, bundle, current, offers);
    }
    return std::nullopt;
}

std::optional<std::int32_t> RunModalBookletFinishingDialog(Gtk::Window* parent,
                                                           const CFBundle& bundle,
                                                           const FinishedSet& current,
                                                           bool offersNone)
{
    constexpr SettingMap NotFolded = {"BookletNotFolded", BookletNotFolded, 0};
    std::vector<PicturedChoice> choices;
    const auto add = [&](const SettingMap& row) {
        choices.push_back(
            {row.value, bundle.localizedString(row.key), WithBookletFold(current, row.value)});
    };
    if (offersNone) {
        add(NotFolded);
    }
    for (const SettingMap* row = BookletFoldMap; row->key != nullptr; ++row) {
        add(*row);
    }
    const std::int32_t fold = current.finishing.bookletFold;
    const bool isFolded = fold != 0 && fold != UnsetValue && fold != BookletNotFolded;
    const std::int32_t first = isFolded ? fold : choices.front().value;
    return RunPositionDialog(parent, bundle, *PositionDialogOf(Family::Booklet), choices, first);
}

} // namespace tarvo
