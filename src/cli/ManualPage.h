#pragma once

#include <string>
#include <string_view>

namespace tarvo {

/// The manual page of section 1, as input for man.
std::string ManualPage(std::string_view version);

} // namespace tarvo
