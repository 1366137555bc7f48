#include "settings/SettingMap.h"

namespace tarvo {

std::int32_t CountMaps(const SettingMap* map)
{
    std::int32_t count = 0;
    while (map[count].key != nullptr) {
        ++count;
    }
    return count;
}

std::int32_t UIToTicket(const SettingMap* map, std::int32_t position)
{
    return map[position - 1].value;
}

std::int32_t TicketToUI(const SettingMap* map, std::int32_t value)
{
    const SettingMap* row = RowForTicketValue(map, value);
    return row->key == nullptr ? -1 : static_cast<std::int32_t>(row - map) + 1;
}

const char* LocalizedKeyForTicketValue(const SettingMap* map, std::int32_t value)
{
    return RowForTicketValue(map, value)->key;
}

const char* LocalizedKeyForPaperSizeTicketValue(const PaperSizeSettingMap* map, std::int32_t value)
{
    return RowForTicketValue(map, value)->key;
}

} // namespace tarvo
