#pragma once

#include <cstdint>

namespace tarvo {

/// One row of a pop-up menu: the key of its text in the bundle's "Localizable" table, the value
/// that the job ticket stores for it and the command of the menu item, 0 for none. A table ends
/// with a null key and the value 0. The row of UnsetValue stands for "nothing chosen"; menus show
/// it as "PrinterDefault" or, for a single page, as "UseJobSetting".
struct SettingMap {
    const char* key;
    std::int32_t value;
    std::uint32_t command;
};

/// The same for paper sizes, with the size itself.
struct PaperSizeSettingMap {
    const char* key;
    std::int32_t value;
    std::uint32_t command;
    std::int32_t width;        // 1/100 mm
    std::int32_t length;       // 1/100 mm, in the feed direction
    std::int32_t widthPoints;  // 1/72 in
    std::int32_t lengthPoints; // 1/72 in
};

/// The number that four characters make, the first in the highest byte.
consteval std::uint32_t FourCharCode(const char (&characters)[5])
{
    std::uint32_t code = 0;
    for (int index = 0; index < 4; ++index) {
        code = code << 8 | static_cast<unsigned char>(characters[index]);
    }
    return code;
}

/// The first row that holds the value or 0. Every search in a table of values goes this way, so a
/// value without a row gives the first row of value 0: the terminator in most tables, but a real
/// row where a menu has a choice without a value of its own.
template <typename Row>
constexpr const Row* RowForTicketValue(const Row* map, std::int32_t value)
{
    while (map->value != value && map->value != 0) {
        ++map;
    }
    return map;
}

/// The number of rows before the terminator.
std::int32_t CountMaps(const SettingMap* map);

/// The ticket value of a menu item.
/// @param position  1 to CountMaps(map)
std::int32_t UIToTicket(const SettingMap* map, std::int32_t position);

/// The menu position, from 1, of the row for a ticket value.
/// @return -1 when the search ends at the terminator
std::int32_t TicketToUI(const SettingMap* map, std::int32_t value);

/// The text key of the row for a ticket value.
/// @return null when the search ends at the terminator
const char* LocalizedKeyForTicketValue(const SettingMap* map, std::int32_t value);
const char* LocalizedKeyForPaperSizeTicketValue(const PaperSizeSettingMap* map, std::int32_t value);

} // namespace tarvo
