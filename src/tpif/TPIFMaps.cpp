#include "tpif/TPIFMaps.h"

namespace tarvo {

std::optional<std::string_view> TPIFConvertKeyword(const TPIFWord* map, std::int32_t value)
{
    const char* keyword = WordForValue(map, value);
    return keyword == nullptr ? std::nullopt : std::optional<std::string_view>(keyword);
}

std::optional<std::int32_t> TPIFConvertKeyword(const TPIFWord* map, std::string_view keyword)
{
    for (const TPIFWord* row = map; row->word != nullptr; ++row) {
        if (row->word == keyword) {
            return row->value;
        }
    }
    return std::nullopt;
}

} // namespace tarvo
