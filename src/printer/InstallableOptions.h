#pragma once

#include "platform/bundle/CFBundle.h"
#include "platform/printing/PMTicket.h"
#include "platform/printing/PPDFile.h"
#include "printer/FeatureMap.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvo {

/// What the user has said to be installed in a printer, and the features that follow from it.
class InstallableOptions {
public:
    /// Marks what the ticket's PPD dictionary says of the main keywords "Option1" to "Option25",
    /// and takes the choice in force of each.
    /// @param ticket  null: what is marked already
    /// @param table   of features, which must outlive this
    InstallableOptions(PPDFile& ppd, const PMTicket* ticket, const InstalledFeatureMap* table);

    /// @return the chosen option keyword, borrowed; null when nothing is chosen
    const std::string* value(std::string_view mainKeyword) const
    {
        return values_.find(mainKeyword);
    }

    /// The first row of the feature that needs no option or whose option is chosen; null when there
    /// is none.
    const InstalledFeatureMap* qualifyingRow(std::string_view feature) const;

    /// The first such row that has a text; null when there is none.
    const InstalledFeatureMap* qualifyingRowWithText(std::string_view feature) const;

private:
    bool qualifies(const InstalledFeatureMap& row, std::string_view feature) const;

    OrderedMap<std::string> values_;
    const InstalledFeatureMap* table_;
};

// The same of the process's printer, see PrinterDescription.

/// The chosen option keyword of a main keyword; false when absent.
bool getInstallableOptionValue(std::string_view mainKeyword, std::string* option);

/// Whether the feature is installed; a feature that the table lacks is not.
bool getInstalledFeature(std::string_view feature);

/// The ticket value of an installed feature; false, with `value` untouched, when not installed.
bool getInstallableOptionTicketValue(std::string_view feature, std::int32_t* value);

/// The text of an installed feature in the bundle's language; nullopt when it has none.
std::optional<std::string>
CopyLocalizedStringForInstalledFeatureFromPlugin(std::string_view feature, const CFBundle& bundle);

} // namespace tarvo
