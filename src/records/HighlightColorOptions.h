#pragma once

#include "platform/cf/CFPropertyList.h"
#include "settings/JobContext.h"
#include "settings/SettingMap.h"

#include <cstdint>
#include <string>

namespace tarvo {

class CFBundle;

/// The highlight colour of a job for printers that have one besides black. The four choices are
/// rows of their maps in ColorMaps.h, from 0, the row of the printer's default.
struct HighlightColorOptions {
    bool isValid = false;              // filled from a ticket
    std::int32_t printingColor = 0;    // HighlightPrintingColorMap
    std::int32_t mappingAlgorithm = 0; // HighlightMappingAlgorithmMap
    std::int32_t mismatchAction = 0;   // HighlightMismatchColorMap
    std::int32_t mappingColor = 0;     // HighlightMappingColorMap
    bool useRGB = true;                // else hue, saturation and value count
    std::int32_t red = 0;              // 0 to 255, of the custom mapping colour
    std::int32_t green = 0;
    std::int32_t blue = 0;
    std::int32_t hue = 0;        // 0 to 360
    std::int32_t saturation = 0; // 0 to 100
    std::int32_t value = 0;      // 0 to 100
    bool operator==(const HighlightColorOptions&) const = default;
};

inline constexpr std::int32_t HighestHighlightRGB = 255;
inline constexpr std::int32_t HighestHighlightHue = 360;
inline constexpr std::int32_t HighestHighlightPercent = 100; // saturation and value

/// Makes the dictionary of HighlightColorKeys.h, every entry always: red, green and blue with 16
/// bits each, hue, saturation and value in hundredths. A component that does not fit 32 bits then
/// becomes the nearest number.
CFDictionary ColorSetupHLCCreateTicketFromOptions(const HighlightColorOptions& options);

/// Reads a dictionary of HighlightColorKeys.h; an absent entry gives its default, and the options
/// are valid afterwards. A choice without a row stays as it is.
void ColorSetupHLCSetOptionsFromTicket(HighlightColorOptions& options, const CFDictionary& ticket);

/// Whether a dictionary gives the custom mapping colour as red, green and blue: a true boolean, a
/// number other than 0, or nothing that says.
bool IsHighlightColorRGB(const CFDictionary& ticket);

/// The row that a pop-up shows for a choice.
/// @return the choice itself, from 0; 0 for one that is no row of the map
std::int32_t HighlightRow(const SettingMap* map, std::int32_t choice);

/// Whether the custom mapping colour is chosen, so that its components count.
bool HasCustomMappingColor(const HighlightColorOptions& options);

/// The choices in words, a line for each that is not left to the printer.
/// @return when all are: that the printer's default holds or, for a page, the job's setting
std::string CreateColorSetupHLCSummary(const CFBundle& bundle, const HighlightColorOptions& options,
                                       JobContext context);

} // namespace tarvo
