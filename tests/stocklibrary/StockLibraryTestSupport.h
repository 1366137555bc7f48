#pragma once

#include "stocklibrary/StockLibrary.h"

#include <string>

namespace tarvo {

/// A paper of that name, as the library's dialog makes one.
inline StockLibrary Paper(const std::string& name, std::int32_t color = 1)
{
    StockLibrary paper;
    paper.setName(name);
    paper.stock().setCustomName(name);
    paper.stock().setColor(color);
    return paper;
}

} // namespace tarvo
