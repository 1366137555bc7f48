#include "panels/paper/PaperOutputMenus.h"

#include "panels/paper/PaperOutputSettings.h"
#include "platform/bundle/CFBundle.h"
#include "printer/JobTypeOffers.h"
#include "printer/PPDKeywordMaps.h"
#include "printer/PrinterDescription.h"
#include "records/JobTypeKeys.h"
#include "settings/ColorMaps.h"
#include "settings/OutputMaps.h"
#include "settings/SettingMenu.h"

#include <algorithm>

namespace tarvo {
namespace {

struct TypeRow {
    JobType type;
    const char* picture;
    JobTypeSetup setup;
};

constexpr TypeRow TypeRows[] = {
    {JobType::Normal,          "Normal-Print.gif",   {"Setup...", false}     },
    {JobType::Hold,            "HoldJob.gif",        {"Setup...", false}     },
    {JobType::Save,            "SaveJob.gif",        {"Save Job As...", true}},
    {JobType::SaveAndPrint,    "Print&SaveJob.gif",  {"Save Job As...", true}},
    {JobType::Fax,             "Fax.gif",            {"Setup...", true}      },
    {JobType::SecurePrint,     "Secure-Print.gif",   {"Setup...", true}      },
    {JobType::DelayedPrint,    "Delayed-Print.gif",  {"Setup...", true}      },
    {JobType::SampleSet,       "Sample-Set.gif",     {"Setup...", false}     },
    {JobType::BackgroundForms, "BackgroundForm.gif", {"Setup...", true}      },
};

const TypeRow* RowOfType(std::int32_t type)
{
    const auto* row =
        std::find_if(std::begin(TypeRows), std::end(TypeRows), [type](const TypeRow& entry) {
            return static_cast<std::int32_t>(entry.type) == type;
        });
    return row == std::end(TypeRows) ? nullptr : row;
}

MenuItem Item(const CFBundle& bundle, const char* key, std::int32_t value)
{
    MenuItem item;
    item.text = bundle.localizedString(key);
    item.value = value;
    return item;
}

// Adds an item for a value that the menu lacks.
void Complete(const CFBundle& bundle, Menu& menu, const char* key, std::int32_t value)
{
    const bool isThere = std::any_of(menu.begin(), menu.end(),
                                     [value](const MenuItem& item) { return item.value == value; });
    if (!isThere) {
        menu.push_back(Item(bundle, key == nullptr ? "Unknown" : key, value));
    }
}

Menu Checked(const CFBundle& bundle, Menu menu, const char* key, std::int32_t current)
{
    Complete(bundle, menu, key, current);
    CheckMenuItemWithValue(menu, current);
    return menu;
}

Menu MenuOf(const CFBundle& bundle, const SettingMap* map, std::int32_t current)
{
    Menu menu;
    PopulateMenuFromMap(bundle, menu, map, JobContext::Job);
    return Checked(bundle, std::move(menu), nullptr, current);
}

std::vector<JobTypeOffer> TypesOf(const PrinterDescription* printer)
{
    return JobTypeOffers(printer == nullptr ? FeatureDatabase() : printer->features());
}

const char* KeyOfType(std::int32_t type)
{
    const char* key = LocalizedKeyForTicketValue(JobTypeMap, type);
    return key == nullptr ? LocalizedKeyForTicketValue(OptionalJobTypeMap, type) : key;
}

bool HasBin(const PrinterDescription& printer, std::int32_t destination)
{
    const auto* ui = printer.uiDictionary();
    const auto bins = ui == nullptr ? std::nullopt : ui->copyOptions(OutputBinMainKeyword);
    const char* bin = GetPPDOptionKeywordForTicketValue(OutputDestinationBinMap, destination);
    return bins && bin != nullptr && FindPPDKeyPairsMatch(*bins, OutputBinMainKeyword, bin) >= 0;
}

bool HasFeature(const PrinterDescription& printer, const char* feature)
{
    return printer.installable() != nullptr &&
           printer.installable()->qualifyingRow(feature) != nullptr;
}

// Null for a tray that only the printer's description knows.
const char* FeatureOfTray(std::int32_t destination)
{
    const auto* row =
        std::find_if(std::begin(InstalledFeatures), std::end(InstalledFeatures),
                     [destination](const auto& each) { return each.value == destination; });
    return row == std::end(InstalledFeatures) ? nullptr : row->feature;
}

} // namespace

Menu JobTypeMenu(const CFBundle& bundle, const PrinterDescription* printer, std::int32_t current,
                 std::optional<std::int32_t> brought)
{
    Menu menu;
    for (const JobTypeOffer& offer : TypesOf(printer)) {
        menu.push_back(Item(bundle, offer.key, offer.type));
    }
    if (brought) {
        Complete(bundle, menu, KeyOfType(*brought), *brought);
    }
    return Checked(bundle, std::move(menu), KeyOfType(current), current);
}

Menu SidesMenu(const CFBundle& bundle, std::int32_t current)
{
    return MenuOf(bundle, DuplexMap, current);
}

Menu OutputDestinationMenu(const CFBundle& bundle, const PrinterDescription* printer,
                           std::int32_t current)
{
    Menu menu;
    PopulateMenuFromMap(bundle, menu, OutputDestHCSS_BKMap, JobContext::Job);
    std::erase_if(menu, [printer, current](const MenuItem& item) {
        return item.value != current && !OffersOutputDestination(printer, item.value);
    });
    return Checked(bundle, std::move(menu), nullptr, current);
}

Menu OutputColorMenu(const CFBundle& bundle, std::int32_t current)
{
    return MenuOf(bundle, OutputColorMap, current);
}

bool OffersJobType(const PrinterDescription* printer, std::int32_t type)
{
    const auto offers = TypesOf(printer);
    return printer == nullptr ||
           std::any_of(offers.begin(), offers.end(),
                       [type](const JobTypeOffer& offer) { return offer.type == type; });
}

bool OffersOutputDestination(const PrinterDescription* printer, std::int32_t destination)
{
    if (LocalizedKeyForTicketValue(OutputDestHCSS_BKMap, destination) == nullptr) {
        return false;
    }
    if (printer == nullptr || destination == UnsetValue || destination == AutoOutputDest) {
        return true;
    }
    const char* feature = FeatureOfTray(destination);
    return feature == nullptr ? HasBin(*printer, destination) : HasFeature(*printer, feature);
}

const char* JobTypePicture(std::int32_t type)
{
    const auto* row = RowOfType(type);
    return row == nullptr ? "" : row->picture;
}

const char* SidesPicture(const PaperOutputSettings& settings)
{
    if (settings.finishing.bookletLayout) {
        return "2 Sided Booklet.gif";
    }
    switch (settings.sides) {
    case OneSided:
        return "1 Sided.gif";
    case TwoSidedLongEdge:
        return "2 Sided Flip on Long Edge.gif";
    case TwoSidedShortEdge:
        return "2 Sided Flip on Short Edge.gif";
    default:
        return "";
    }
}

JobTypeSetup SetupOfJobType(std::int32_t type)
{
    const auto* row = RowOfType(type);
    return row == nullptr ? JobTypeSetup{"Setup...", false} : row->setup;
}

} // namespace tarvo
