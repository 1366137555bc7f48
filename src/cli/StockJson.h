#pragma once

#include <nlohmann/json_fwd.hpp>

namespace tarvo {

class CFDictionary;

/// A stock's dictionary, whose values are numbers, texts and booleans, for a program.
nlohmann::ordered_json StockJson(const CFDictionary& stock);

} // namespace tarvo
