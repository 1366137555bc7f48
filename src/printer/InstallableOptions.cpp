#include "printer/InstallableOptions.h"

#include "printer/PrinterDescription.h"

namespace tarvo {
namespace {

constexpr int LastOptionNumber = 25;

const InstallableOptions* Current()
{
    const auto* printer = PrinterDescription::Current();
    return printer == nullptr ? nullptr : printer->installable();
}

const InstalledFeatureMap* CurrentRow(std::string_view feature)
{
    const auto* options = Current();
    return options == nullptr ? nullptr : options->qualifyingRow(feature);
}

} // namespace

InstallableOptions::InstallableOptions(PPDFile& ppd, const PMTicket* ticket,
                                       const InstalledFeatureMap* table)
    : table_(table)
{
    for (int number = 1; number <= LastOptionNumber; ++number) {
        const std::string keyword = "Option" + std::to_string(number);
        const auto* chosen =
            ticket == nullptr ? nullptr : ticket->ppdDictionary().get<std::string>(keyword);
        if (chosen != nullptr) {
            ppd.mark(keyword, *chosen);
        }
        if (const std::string* marked = ppd.markedChoice(keyword)) {
            values_.set(keyword, *marked);
        }
    }
}

bool InstallableOptions::qualifies(const InstalledFeatureMap& row, std::string_view feature) const
{
    if (row.feature != feature) {
        return false;
    }
    const std::string* chosen = row.mainKeyword == nullptr ? nullptr : value(row.mainKeyword);
    return row.mainKeyword == nullptr || (chosen != nullptr && *chosen == row.requiredOption);
}

const InstalledFeatureMap* InstallableOptions::qualifyingRow(std::string_view feature) const
{
    for (const auto* row = table_; row != nullptr && row->feature != nullptr; ++row) {
        if (qualifies(*row, feature)) {
            return row;
        }
    }
    return nullptr;
}

const InstalledFeatureMap* InstallableOptions::qualifyingRowWithText(std::string_view feature) const
{
    for (const auto* row = table_; row != nullptr && row->feature != nullptr; ++row) {
        if (row->key != nullptr && qualifies(*row, feature)) {
            return row;
        }
    }
    return nullptr;
}

bool getInstallableOptionValue(std::string_view mainKeyword, std::string* option)
{
    const auto* options = Current();
    const std::string* value = options == nullptr ? nullptr : options->value(mainKeyword);
    if (value == nullptr || option == nullptr) {
        return false;
    }
    *option = *value;
    return true;
}

bool getInstalledFeature(std::string_view feature)
{
    return CurrentRow(feature) != nullptr;
}

bool getInstallableOptionTicketValue(std::string_view feature, std::int32_t* value)
{
    const InstalledFeatureMap* row = CurrentRow(feature);
    if (row == nullptr || value == nullptr) {
        return false;
    }
    *value = row->value;
    return true;
}

std::optional<std::string>
CopyLocalizedStringForInstalledFeatureFromPlugin(std::string_view feature, const CFBundle& bundle)
{
    const auto* options = Current();
    const auto* row = options == nullptr ? nullptr : options->qualifyingRowWithText(feature);
    return row == nullptr ? std::nullopt : std::optional(bundle.localizedString(row->key));
}

} // namespace tarvo
