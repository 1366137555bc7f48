#pragma once

#include "settings/JobContext.h"
#include "settings/Menu.h"
#include "settings/SettingMap.h"

#include <cstdint>
#include <span>
#include <string>

namespace tarvo {

class CFBundle;

/// Appends an item for each row. The row of UnsetValue reads "PrinterDefault" for a job and
/// "UseJobSetting" for a page.
/// @param command  that of every item; 0 leaves each item its row's own
/// @return the number of items appended
std::int16_t PopulateMenuFromMap(const CFBundle& bundle, Menu& menu, const SettingMap* map,
                                 JobContext context, std::uint32_t command = 0);

/// Checks the first item of the value and no other; none when no item has it.
void CheckMenuItemWithValue(Menu& menu, std::int32_t value);

/// The value of the first item that is checked; 0 when none is.
std::int32_t CheckedValue(const Menu& menu);

/// A paper of a stock library, as a menu offers it.
struct NamedPaper {
    std::string uuid; // its identity in the library
    std::string name; // what the menu shows
};

/// The command of a named paper's item.
inline constexpr std::uint32_t NamedPaperCommand = FourCharCode("NPmS");

/// Replaces the menu's items by those of the map, with the named papers behind the first; a
/// disabled "Empty" where there are none. A paper's uuid is its item's reference.
/// @param papers  the most recently used first
/// @return the number of rows of the map
std::int16_t PopulateMenuFromMapAndFile(const CFBundle& bundle, Menu& menu, const SettingMap* map,
                                        std::span<const NamedPaper> papers);

} // namespace tarvo
