#pragma once

#include "panels/paper/PaperConflicts.h"
#include "platform/cf/OrderedMap.h"
#include "platform/printing/PPDFile.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

/// A choice of a main keyword in the printer's description.
struct PrinterChoice {
    std::optional<PaperControl> control; // that has made it; nothing for what is chosen elsewhere
    std::string option;
    std::string choice;
};

/// What the panel's values are in the words of a printer's description.
std::vector<PrinterChoice> PrinterChoicesOf(const PaperOutputSettings& settings);

/// The choices of all main keywords that are in force: those of the panel, where it makes none
/// those of the dialog's own tabs, and else those of the printer.
class PrinterChoices {
public:
    PrinterChoices(const PaperOutputSettings& settings, const PPDFile& ppd,
                   const CFDictionary& dialog);

    /// @param choice  "" asks for any that switches the option on
    /// @return the choice, owned by this; null when it is not in force
    const PrinterChoice* inForce(std::string_view option, std::string_view choice) const;

private:
    OrderedMap<std::vector<PrinterChoice>> choices_; // by main keyword
};

} // namespace tarvo
