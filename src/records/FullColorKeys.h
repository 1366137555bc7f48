#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tarvo {

// Entries of the full-colour options' dictionary.
inline constexpr std::string_view FullColorLightnessKey = "FCLightness";
inline constexpr std::string_view FullColorContrastKey = "FCContrast";
inline constexpr std::string_view FullColorSaturationKey = "FCSaturation";
inline constexpr std::string_view FullColorCastKey = "FCColorCast"; // dictionary of the next three
inline constexpr std::string_view FullColorCyanRedKey = "FCCyanRed";
inline constexpr std::string_view FullColorMagentaGreenKey = "FCMagentaGreen";
inline constexpr std::string_view FullColorYellowBlueKey = "FCYellowBlue";
inline constexpr std::string_view FullColorTrappingKey = "FCTrapping";
inline constexpr std::string_view FullColorTrappingFastKey = "FCTrappingFastDirection";
inline constexpr std::string_view FullColorTrappingSlowKey = "FCTrappingSlowDirection";
inline constexpr std::string_view FullColorBlackOverprintKey = "FCBlackOverprint";
inline constexpr std::string_view FullColorTRCKey = "FCTRC"; // string

// Profiles: a number for one of the printer's own, a string for the name of a custom one. Gray
// profiles have a name only.
inline constexpr std::string_view RGBImagesProfileKey = "RGBImagesProfile";
inline constexpr std::string_view RGBTextAndGraphicsProfileKey = "RGBTextAndGraphicsProfile";
inline constexpr std::string_view CMYKImagesProfileKey = "CMYKImagesProfile";
inline constexpr std::string_view CMYKTextAndGraphicsProfileKey = "CMYKTextAndGraphicsProfile";
inline constexpr std::string_view GrayImagesProfileKey = "GrayImagesProfile";
inline constexpr std::string_view GrayTextAndGraphicsProfileKey = "GrayTextAndGraphicsProfile";
inline constexpr std::string_view DestinationProfileKey = "DestinationProfile";
inline constexpr std::size_t LongestProfileName = 255; // characters

inline constexpr std::string_view ImageRenderingKey = "ImageRendering";
inline constexpr std::string_view TextRenderingKey = "TextRendering";
inline constexpr std::string_view GraphicRenderingKey = "GraphicRendering";

} // namespace tarvo
