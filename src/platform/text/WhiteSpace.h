#pragma once

#include <string_view>

namespace tarvo {

/// The text without the white space of XML around it: blanks, tabs, line feeds and carriage
/// returns.
std::string_view Trimmed(std::string_view text);

} // namespace tarvo
