#pragma once

#include "settings/Menu.h"

#include <cstdint>
#include <optional>

namespace tarvo {

class CFBundle;
class InstallableOptions;
class PPDUIDictionary;
class PrinterDescription;
struct PaperOutputSettings;

// Each menu has the value in force checked. What a ticket brings and the printer does not offer is
// in the menu too, so that to open it changes nothing.

/// @param printer  null offers what every printer has; so in OutputDestinationMenu
/// @param brought  a type that is in the menu, too, as a ticket had it
Menu JobTypeMenu(const CFBundle& bundle, const PrinterDescription* printer, std::int32_t current,
                 std::optional<std::int32_t> brought = std::nullopt);
Menu SidesMenu(const CFBundle& bundle, std::int32_t current);
/// The trays that are installed, or that the printer's description names.
Menu OutputDestinationMenu(const CFBundle& bundle, const PrinterDescription* printer,
                           std::int32_t current);
Menu OutputColorMenu(const CFBundle& bundle, std::int32_t current);

// Whether the printer offers the value; without a printer everything is offered.
bool OffersJobType(const PrinterDescription* printer, std::int32_t type);
bool OffersOutputDestination(const PrinterDescription* printer, std::int32_t destination);

/// File names of pictures in the bundle; "" where there is none.
const char* JobTypePicture(std::int32_t type);
const char* SidesPicture(const PaperOutputSettings& settings);

/// The button beside the job type.
struct JobTypeSetup {
    const char* key; // of its label
    bool isEnabled;
};
JobTypeSetup SetupOfJobType(std::int32_t type);

} // namespace tarvo
