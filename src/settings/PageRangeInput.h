#pragma once

#include <string_view>

namespace tarvo {

/// Whether characters typed into a field of page ranges may stay: decimal digits of any script,
/// control characters, white space, "," and "-". The last character is not looked at.
bool PageRangeValidateInput(std::u16string_view characters);

} // namespace tarvo
