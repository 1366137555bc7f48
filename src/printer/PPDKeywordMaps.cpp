#include "printer/PPDKeywordMaps.h"

namespace tarvo {

const PPDKeywordMap* GetPPDOptionMapForMainKeyword(std::string_view mainKeyword)
{
    for (const auto* row = MainKeywordMap; row->keyword != nullptr; ++row) {
        if (row->keyword == mainKeyword) {
            return row->options;
        }
    }
    return nullptr;
}

const char* GetPPDOptionKeywordForTicketValue(const PPDKeywordMap* map, std::int32_t value)
{
    for (const auto* row = map; row != nullptr && row->keyword != nullptr; ++row) {
        if (row->value == value) {
            return row->keyword;
        }
    }
    return nullptr;
}

std::int32_t GetTicketValueForPPDOptionKeyword(const PPDKeywordMap* map, std::string_view keyword)
{
    for (const auto* row = map; row != nullptr && row->keyword != nullptr; ++row) {
        if (row->keyword == keyword) {
            return row->value;
        }
    }
    return -1;
}

} // namespace tarvo
