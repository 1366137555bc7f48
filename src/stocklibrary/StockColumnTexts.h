#pragma once

#include <cstddef>
#include <string>

namespace tarvo {

class CFBundle;
class StockLibrary;

/// The key of a column's title.
/// @param column  of StockColumns
const char* StockColumnKey(std::size_t column);

/// What a column says of a paper; "" for what is not set or has no word.
/// @param column  of StockColumns
std::string StockColumnText(const CFBundle& bundle, const StockLibrary& paper, std::size_t column);

} // namespace tarvo
