#include "records/StockSizes.h"

#include "records/Stock.h"
#include "settings/StockMaps.h"

namespace tarvo {

std::optional<StockDimensions> GetStockDimensions(const Stock& stock)
{
    StockDimensions dimensions{stock.width(), stock.length()};
    if (stock.size() != CustomStockSize) {
        const auto* row = RowForTicketValue(CompleteStockSizeMap, stock.size());
        dimensions = {row->width, row->length};
        if (row->key == nullptr) {
            return std::nullopt;
        }
    }
    if (dimensions.width == UnsetValue || dimensions.length == UnsetValue) {
        return std::nullopt;
    }
    return dimensions;
}

std::int32_t GetSizeForStockDimensions(std::int32_t x, std::int32_t y)
{
    for (const auto* row = CompleteStockSizeMap; row->key != nullptr; ++row) {
        if (row->width == x || row->width == y) {
            return row->value;
        }
    }
    return UnsetValue;
}

} // namespace tarvo
