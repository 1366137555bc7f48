#pragma once

#include <string_view>

namespace tarvo {

/// The manufacturer of the family, as the descriptions of its printers spell it. The print features
/// are for these printers alone.
inline constexpr std::string_view FamilyMaker = "Tarvo";

} // namespace tarvo
