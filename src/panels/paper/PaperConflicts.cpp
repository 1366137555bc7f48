#include "panels/paper/PaperConflicts.h"

#include "panels/paper/PaperOutputMenus.h"
#include "panels/paper/PaperOutputSettings.h"
#include "panels/paper/PrinterChoices.h"
#include "platform/bundle/CFBundle.h"
#include "platform/text/TextFormat.h"
#include "printer/FinishingOffers.h"
#include "printer/PPDKeywordMaps.h"
#include "printer/PrinterDescription.h"
#include "records/FinishingMenu.h"
#include "records/JobTypeKeys.h"
#include "settings/FinishingMaps.h"
#include "settings/OutputMaps.h"
#include "settings/StockMaps.h"

#include <algorithm>

namespace tarvo {
namespace {

namespace Family = FinishingFamily;

constexpr std::int32_t DefaultOffset = 1; // OffsetMap

// What resolving a control's conflict chooses.
struct RemedyRow {
    PaperControl control;
    const char* key;
};
constexpr RemedyRow Remedies[] = {
    {PaperControl::JobType,     "Normal"        },
    {PaperControl::Stock,       "PrinterDefault"},
    {PaperControl::Sides,       "Simplex"       },
    {PaperControl::Finishing,   "PrinterDefault"},
    {PaperControl::Offset,      "PrinterDefault"},
    {PaperControl::Destination, "PrinterDefault"},
};

// The conflicts found so far, of each control the first.
class Conflicts {
public:
    explicit Conflicts(const CFBundle& bundle) : bundle_(bundle) {}

    void addNotOffered(PaperControl control, const std::string& choice)
    {
        add(control, FilledFormat(bundle_.localizedString("Not Offered Message"), choice));
    }
    void addExclusion(PaperControl control, const std::string& one, const std::string& other)
    {
        add(control, FilledFormat(bundle_.localizedString("Exclusion Message"), {one, other}));
    }
    std::vector<PaperConflict> sorted() &&
    {
        std::sort(found_.begin(), found_.end(),
                  [](const auto& one, const auto& other) { return one.control < other.control; });
        return std::move(found_);
    }
    std::string text(const char* key) const { return bundle_.localizedString(key); }
    std::string phrase(const std::string& name, const std::string& value) const
    {
        return name + bundle_.localizedString(":") + value;
    }

private:
    void add(PaperControl control, std::string sentence)
    {
        const bool isKnown = std::any_of(found_.begin(), found_.end(), [control](const auto& old) {
            return old.control == control;
        });
        if (isKnown) {
            return;
        }
        const auto* remedy =
            std::find_if(std::begin(Remedies), std::end(Remedies),
                         [control](const RemedyRow& row) { return row.control == control; });
        found_.push_back({control, std::move(sentence),
                          FilledFormat(bundle_.localizedString("UseInstead"),
                                       bundle_.localizedString(remedy->key))});
    }

    const CFBundle& bundle_;
    std::vector<PaperConflict> found_;
};

bool Offers(const std::vector<FinishingOffer>& offers, std::int32_t option, std::int32_t choice)
{
    return std::any_of(offers.begin(), offers.end(), [option, choice](const auto& offer) {
        const auto& choices = offer.choices;
        return offer.option == option &&
               (choices.empty() ||
                std::find(choices.begin(), choices.end(), choice) != choices.end());
    });
}

bool OffersParts(const std::vector<FinishingOffer>& offers, const CombinedFinishing& parts)
{
    return (parts.staple == 0 || Offers(offers, parts.stapleFamily, parts.staple)) &&
           (parts.punch == 0 || Offers(offers, Family::HolePunch, parts.holes)) &&
           (parts.zFold == 0 || Offers(offers, Family::ZFold, parts.zFold));
}

bool OffersFinishing(const PrinterDescription& printer, const FinishingChoice& choice)
{
    const auto* ui = printer.uiDictionary();
    const bool isDefault = FinishingMenuValue(choice) == Family::PrinterDefault;
    if (printer.installable() == nullptr || ui == nullptr || (isDefault && !FoldsBooklet(choice))) {
        return true;
    }
    const auto folds = ui->copyOptions(FoldMainKeyword);
    const auto offers = FinishingOffers(*printer.installable(), folds.value_or(PPDKeywordInfos()));
    if (PartsOfFinishing(choice.option)) {
        return OffersParts(offers, PartsOf(choice));
    }
    if (isDefault) {
        return Offers(offers, Family::Booklet, choice.bookletFold);
    }
    const auto position = FinishingPosition(choice.option);
    const bool isHolePunch = choice.option == Family::HolePunch;
    return Offers(offers, choice.option,
                  isHolePunch           ? choice.holes
                  : position == nullptr ? 0
                                        : choice.*position);
}

std::string CheckedText(const Menu& menu, const std::string& otherwise)
{
    const auto checked =
        std::find_if(menu.begin(), menu.end(), [](const MenuItem& item) { return item.isChecked; });
    return checked == menu.end() ? otherwise : checked->text;
}

// The first line of its summary. That of an unknown position says nothing of what is chosen.
std::string NameOf(const CFBundle& bundle, const FinishingChoice& choice)
{
    if (FoldsBooklet(choice)) {
        return bundle.localizedString(
            LocalizedKeyForTicketValue(BookletFoldMap, choice.bookletFold));
    }
    const std::string summary = CreateFinishingString(choice, bundle);
    const std::string line = summary.substr(0, summary.find('\n'));
    const bool isName = !line.empty() && line != bundle.localizedString("PrinterDefault");
    return isName
               ? line
               : CheckedText(FinishingMenu(bundle, {}, choice), bundle.localizedString("Unknown"));
}

void FindNotOffered(const CFBundle& bundle, const PaperOutputSettings& settings,
                    const PrinterDescription& printer, Conflicts& conflicts)
{
    const auto textOf = [](const Menu& menu) { return CheckedText(menu, ""); }; // each has one
    if (const std::int32_t type = JobTypeOf(settings); !OffersJobType(&printer, type)) {
        conflicts.addNotOffered(PaperControl::JobType, textOf(JobTypeMenu(bundle, &printer, type)));
    }
    if (!OffersFinishing(printer, settings.finishing)) {
        conflicts.addNotOffered(PaperControl::Finishing, NameOf(bundle, settings.finishing));
    }
    if (!OffersOutputDestination(&printer, settings.outputDestination)) {
        conflicts.addNotOffered(
            PaperControl::Destination,
            textOf(OutputDestinationMenu(bundle, &printer, settings.outputDestination)));
    }
}

// A transparency goes through the printer once.
void FindTwoSidedTransparency(const PaperOutputSettings& settings, Conflicts& conflicts)
{
    if (settings.stock.type() != TransparencyStockType ||
        (settings.sides != TwoSidedLongEdge && settings.sides != TwoSidedShortEdge)) {
        return;
    }
    const char* sidesKey = LocalizedKeyForTicketValue(DuplexMap, settings.sides);
    conflicts.addExclusion(
        PaperControl::Sides,
        conflicts.phrase(conflicts.text("ShowSides"), conflicts.text(sidesKey)),
        conflicts.phrase(conflicts.text("StockType"), conflicts.text("StockTypeTransparency")));
}

std::string PhraseOf(const PPDFile& ppd, const PrinterChoice& choice, const Conflicts& conflicts)
{
    const PPDOption& option = *ppd.option(choice.option);
    const auto found =
        std::find_if(option.choices.begin(), option.choices.end(),
                     [&choice](const PPDChoice& entry) { return entry.keyword == choice.choice; });
    return conflicts.phrase(option.text,
                            found == option.choices.end() ? choice.choice : found->text);
}

void FindBrokenConstraints(const PaperOutputSettings& settings, const PPDFile& ppd,
                           const CFDictionary& dialog, Conflicts& conflicts)
{
    const PrinterChoices choices(settings, ppd, dialog);
    for (const PPDConstraint& constraint : ppd.constraints()) {
        const auto* one = choices.inForce(constraint.option1, constraint.choice1);
        const auto* other = choices.inForce(constraint.option2, constraint.choice2);
        if (one == nullptr || other == nullptr || (!one->control && !other->control)) {
            continue;
        }
        if (one->control < other->control) { // nothing is before everything
            std::swap(one, other);
        }
        conflicts.addExclusion(*one->control, PhraseOf(ppd, *one, conflicts),
                               PhraseOf(ppd, *other, conflicts));
    }
}

} // namespace

std::vector<PaperConflict> PaperConflicts(const CFBundle& bundle, const PaperOutputSettings& chosen,
                                          const PrinterDescription* printer,
                                          const CFDictionary& dialog)
{
    PaperOutputSettings settings = chosen;
    settings.sides = SidesInForce(chosen, dialog);
    Conflicts conflicts(bundle);
    FindTwoSidedTransparency(settings, conflicts);
    if (printer != nullptr) {
        FindNotOffered(bundle, settings, *printer, conflicts);
    }
    if (printer != nullptr && printer->ppd() != nullptr) {
        FindBrokenConstraints(settings, *printer->ppd(), dialog, conflicts);
    }
    return std::move(conflicts).sorted();
}

void ResolvePaperConflict(PaperOutputSettings& settings, PaperControl control)
{
    switch (control) {
    case PaperControl::JobType:
        settings.jobType.set(JobTypeNumberKey, static_cast<std::int32_t>(JobType::Normal));
        break;
    case PaperControl::Stock:
        DefaultStock(settings.stock, JobContext::Job);
        break;
    case PaperControl::Sides:
        settings.sides = OneSided;
        break;
    case PaperControl::Finishing:
        settings.finishing = ChooseFinishing(settings.finishing, Family::PrinterDefault);
        settings.finishing.bookletFold = BookletNotFolded;
        break;
    case PaperControl::Offset:
        settings.finishing.offset = DefaultOffset;
        break;
    case PaperControl::Destination:
        settings.outputDestination = UnsetValue;
        break;
    }
}

} // namespace tarvo
