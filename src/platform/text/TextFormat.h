#pragma once

#include <string>
#include <string_view>

namespace tarvo {

/// A text of the bundle with its first "%@" replaced by the value, which is taken as it is. A text
/// without one stays as it is.
std::string FilledFormat(std::string_view format, std::string_view value);

} // namespace tarvo
