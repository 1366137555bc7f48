#include "panels/paper/FinishingSection.h"

#include "panels/PanelEnvironment.h"
#include "panels/finishing/FinishingDialogs.h"
#include "panels/paper/PaperOutputSettings.h"
#include "panels/toolkit/ControlBindings.h"
#include "panels/toolkit/Guarded.h"
#include "panels/toolkit/Nib.h"
#include "panels/toolkit/WidgetTexts.h"
#include "printer/PPDKeywordMaps.h"
#include "printer/PrinterDescription.h"
#include "records/FinishingMenu.h"

#include <glibmm/main.h>

namespace tarvo {
namespace {

// The picture of the finished set, in points.
constexpr int PictureWidth = 120;
constexpr int PictureHeight = 90;

std::vector<FinishingOffer> OffersOfPrinter()
{
    const auto* printer = PrinterDescription::Current();
    if (printer == nullptr || printer->installable() == nullptr) {
        return {};
    }
    const auto folds = printer->uiDictionary()->copyOptions(FoldMainKeyword);
    return FinishingOffers(*printer->installable(), folds.value_or(PPDKeywordInfos()));
}

OffsetOffers OffsetOffersOfPrinter()
{
    return {.offset = getInstalledFeature("Offset"),
            .slipSheets = getInstalledFeature("SlipSheets")};
}

std::string WithoutLastLineFeed(std::string lines)
{
    lines.resize(lines.find_last_not_of('\n') + 1);
    return lines;
}

bool IsLandscape(const PMPrintSession* session)
{
    const auto orientation = session == nullptr || !session->pageFormat
                                 ? PageOrientation::Portrait
                                 : session->pageFormat->orientation;
    return orientation == PageOrientation::Landscape ||
           orientation == PageOrientation::ReverseLandscape;
}

FinishedSet FinishedSetOf(const PaperOutputSettings& settings)
{
    return {.finishing = settings.finishing,
            .paperColor = settings.stock.color(),
            .sides = settings.sides,
            .isLandscape = IsLandscape(GetCurrentPrintSession()),
            .ownColor = settings.stock.customColor()};
}

} // namespace

FinishingSection::FinishingSection(Nib& nib, PaperOutputSettings& settings,
                                   ControlBindings& bindings)
    : settings_(settings),
      bindings_(bindings),
      family_(nib.widget<Gtk::ComboBox>("Tshl230")),
      setup_(nib.widget<Gtk::Button>("Tshl233")),
      summary_(nib.widget<Gtk::Label>("Tshl231")),
      picture_(nib.widget<Gtk::Box>("Tshl260")),
      offset_(nib.widget<Gtk::Button>("Tshl232")),
      view_(PictureWidth, PictureHeight)
{
}

void FinishingSection::bind()
{
    bindFamily();
    bindPicture();
    const OffsetOffers offers = OffsetOffersOfPrinter();
    offset_->set_visible(offers.offset || offers.slipSheets);
    offset_->signal_clicked().connect(Guarded([this] { setUpOffset(); }));
}

// A family that is chosen already is changed with the button beside it.
void FinishingSection::bindFamily()
{
    bindings_.bindMenu(
        family_,
        [this] { return FinishingMenu(*GetPDEBundle(), OffersOfPrinter(), settings_.finishing); },
        [this](std::int32_t option) { choose(option); });
    setup_->signal_clicked().connect(
        Guarded([this] { runDialog(FinishingMenuValue(settings_.finishing)); }));
}

void FinishingSection::bindPicture()
{
    view_.show();
    picture_->add(view_);
    bindings_.bindView([this] {
        const CFBundle& bundle = *GetPDEBundle();
        setup_->set_sensitive(HasFinishingChoices(bundle, OffersOfPrinter(),
                                                  FinishingMenuValue(settings_.finishing),
                                                  settings_.finishing));
        summary_->set_text(
            ShownText(WithoutLastLineFeed(CreateFinishingString(settings_.finishing, bundle))));
        view_.showSet(FinishedSetOf(settings_), bundle);
    });
}

// A dialog waits until the pop-up button has closed: it would run inside it. Meanwhile the user may
// go to another print dialog.
void FinishingSection::choose(std::int32_t option)
{
    if (!HasFinishingDialog(option)) {
        settings_.finishing = ChooseFinishing(settings_.finishing, option);
        return;
    }
    Glib::signal_idle().connect_once(
        Guarded([this, option, alive = std::weak_ptr(alive_), printDialog = DialogHandle()] {
            if (!alive.expired() && printDialog.restore()) {
                runDialog(option);
            }
        }));
}

void FinishingSection::runDialog(std::int32_t option)
{
    take([option](const FinishedSet& set) {
        return RunFinishingDialog(GetPDEWindow(), *GetPDEBundle(), option, set, OffersOfPrinter());
    });
}

void FinishingSection::setUpOffset()
{
    take([](const FinishedSet& set) {
        return RunOffsetSetupDialog(GetPDEWindow(), *GetPDEBundle(), set, OffsetOffersOfPrinter());
    });
}

// A dialog that is cancelled leaves the family as it was, in its pop-up button too.
void FinishingSection::take(
    const std::function<std::optional<FinishingChoice>(const FinishedSet&)>& ask)
{
    const std::weak_ptr<bool> alive = alive_;
    const auto choice = ask(FinishedSetOf(settings_));
    if (alive.expired()) {
        return;
    }
    settings_.finishing = choice.value_or(settings_.finishing);
    bindings_.show();
}

} // namespace tarvo
