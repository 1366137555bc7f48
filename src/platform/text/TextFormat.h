#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace tarvo {

/// A text of the bundle with its first "%@" replaced by the value, which is taken as it is. A text
/// without one stays as it is.
std::string FilledFormat(std::string_view format, std::string_view value);

/// The same with each "%@" replaced by the next value. Values and places without a partner are left
/// out and left as they are.
std::string FilledFormat(std::string_view format, std::initializer_list<std::string_view> values);

} // namespace tarvo
