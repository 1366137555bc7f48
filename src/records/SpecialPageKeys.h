#pragma once

#include <string_view>

namespace tarvo {

// Entries of a cover's, an insert's and an exception page's dictionary.
inline constexpr std::string_view PageStockKey = "Stock"; // dictionary
inline constexpr std::string_view StartPageKey = "StartPage";
inline constexpr std::string_view EndPageKey = "EndPage";         // of an exception page
inline constexpr std::string_view InsertQuantityKey = "Quantity"; // of an insert
// Of a cover the sides printed on; of an exception page, under the same key, its two-sided mode.
inline constexpr std::string_view SidesImagedKey = "SidesImaged";

// Entries that only an exception page has.
inline constexpr std::string_view PageImageShiftKey =
    "com.tarvo.print.ImageShiftOptionsPage"; // dictionary
inline constexpr std::string_view PageLightenDarkenKey = "LightenDarken";
inline constexpr std::string_view PageFullColorKey = "FullColorOptionsPage"; // dictionary
inline constexpr std::string_view PageAntialiasingKey = "Antialiasing";
inline constexpr std::string_view PageHalftoneScreenKey = "HalftoneScreen";
inline constexpr std::string_view PageOutputColorKey = "OutputColor";

} // namespace tarvo
