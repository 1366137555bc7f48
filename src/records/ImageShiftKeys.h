#pragma once

#include <string_view>

namespace tarvo {

// Entries of an image shift's dictionary, of the job or of a page; background forms have some too.
inline constexpr std::string_view ShiftTwoSidedModeKey = "Option"; // ImageShiftOptions2SidedMap
inline constexpr std::string_view ShiftInchesKey = "Inches";       // 0 millimetres, else inches
inline constexpr std::string_view ShiftFullPrecisionKey = "FullPrecision"; // offsets in 1/100 mm
inline constexpr std::string_view ShiftX1Key = "X1";                       // side 1
inline constexpr std::string_view ShiftY1Key = "Y1";
inline constexpr std::string_view ShiftX2Key = "X2"; // side 2
inline constexpr std::string_view ShiftY2Key = "Y2";

} // namespace tarvo
