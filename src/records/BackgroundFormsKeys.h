#pragma once

#include <string_view>

namespace tarvo {

// Entries of the background forms options' dictionary; its offset has the keys of an image shift.
inline constexpr std::string_view NewFormStringKey = "NewFormString";     // string
inline constexpr std::string_view MergeWithStringKey = "MergeWithString"; // string
inline constexpr std::string_view CyclePagesKey = "CyclePages";

} // namespace tarvo
