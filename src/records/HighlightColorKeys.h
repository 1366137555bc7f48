#pragma once

#include <string_view>

namespace tarvo {

// Entries of the highlight colour options' dictionary. The spelling of the first is the ticket's.
inline constexpr std::string_view HighlightPrintingColorKey = "HiglightPrintingColor";
inline constexpr std::string_view HighlightMappingColorKey = "HighlightMappingColor";
inline constexpr std::string_view HighlightMappingAlgorithmKey = "HighlightMappingAlgorithm";
inline constexpr std::string_view HighlightMismatchActionKey = "HighlightMismatchAction";
inline constexpr std::string_view HighlightColorRGBKey = "HighlightColorRGB"; // else hue and so on
inline constexpr std::string_view HighlightColorRKey = "HighlightColorR";     // 0 to 65535
inline constexpr std::string_view HighlightColorGKey = "HighlightColorG";
inline constexpr std::string_view HighlightColorBKey = "HighlightColorB";
inline constexpr std::string_view HighlightColorHKey = "HighlightColorH"; // in hundredths
inline constexpr std::string_view HighlightColorSKey = "HighlightColorS";
inline constexpr std::string_view HighlightColorVKey = "HighlightColorV";

} // namespace tarvo
