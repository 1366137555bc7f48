#pragma once

#include <nlohmann/json_fwd.hpp>

#include <string>

namespace tarvo {

/// The value as text with a line feed at its end; bytes that are no UTF-8 become U+FFFD. Made in
/// one source, since the library's own way takes long to compile.
/// @param indent  -1 for one line
std::string JsonText(const nlohmann::ordered_json& json, int indent = 2);

} // namespace tarvo
