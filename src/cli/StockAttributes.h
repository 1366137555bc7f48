#pragma once

#include "cli/Arguments.h"
#include "records/Stock.h"

#include <string>

namespace tarvo {

/// Gives a stock what the options of `stocks add` say of it.
/// @return false with what is wrong in `reason`
[[nodiscard]] bool ReadStockAttributes(const Arguments& arguments, Stock& stock,
                                       std::string& reason);

} // namespace tarvo
