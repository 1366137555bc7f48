#pragma once

#include <nlohmann/json.hpp>

#include <string>

namespace tarvo {

class CFDictionary;

/// A stock's dictionary, whose values are numbers, texts and booleans, for a program.
nlohmann::ordered_json StockJson(const CFDictionary& stock);

/// @param indent  -1 for one line
std::string JsonText(const nlohmann::ordered_json& json, int indent = 2);

} // namespace tarvo
