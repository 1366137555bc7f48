#pragma once

#include <cstdint>
#include <optional>

namespace tarvo {

class Stock;

/// A paper's size in 1/100 mm, the length in the feed direction.
struct StockDimensions {
    std::int32_t width = 0;
    std::int32_t length = 0;
    bool operator==(const StockDimensions&) const = default;
};

/// The size in numbers: the stock's own for a custom size, else the one that the size has in
/// CompleteStockSizeMap.
/// @return nullopt when the size is unset or has no row, and for a custom size that lacks a number
std::optional<StockDimensions> GetStockDimensions(const Stock& stock);

/// The size that a printer means by its media's measures: that of the first row of
/// CompleteStockSizeMap whose width is one of them. The other measure is not compared, so every
/// medium that is 216 mm wide or long is taken for Letter, and Legal among them; a printer's
/// Letter, 21590 x 27940, is no row at all. A measure of 0 gives the custom size.
/// @param x  in 1/100 mm, as y
/// @return UnsetValue when no row has such a width
std::int32_t GetSizeForStockDimensions(std::int32_t x, std::int32_t y);

} // namespace tarvo
