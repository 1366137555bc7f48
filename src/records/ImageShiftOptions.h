#pragma once

#include "platform/cf/CFPropertyList.h"

namespace tarvo {

class CFBundle;

/// How far the image of a job or of an exception page is moved on its sheets.
struct ImageShiftOptions {
    bool isValid = true;                    // false: left out of tickets whatever else it holds
    std::int32_t twoSidedMode = UnsetValue; // ImageShiftOptions2SidedMap
    bool isInches = true;                   // offsets in 1/100 in, else in 1/10 mm
    std::int32_t x1 = 0;                    // side 1
    std::int32_t y1 = 0;
    std::int32_t x2 = 0; // side 2
    std::int32_t y2 = 0;
    bool operator==(const ImageShiftOptions&) const = default;
};

/// Makes the dictionary of ImageShiftKeys.h: six numbers, the offsets in 1/100 mm, and
/// "FullPrecision" as the boolean true. An offset beyond 32 bits becomes the nearest number.
CFDictionary ImageShiftCreateTicketFromOptions(const ImageShiftOptions& options);

/// Reads a dictionary of ImageShiftKeys.h; an absent entry gives its default, and the options are
/// valid afterwards. What was inches when written comes back at most 1/100 in nearer to 0.
void ImageShiftSetOptionsFromTicket(ImageShiftOptions& options, const CFDictionary& ticket);

/// The two-sided mode in the user's words, "label:mode"; "" when it is unset.
std::string ImageShiftDescription(const CFBundle& bundle, const ImageShiftOptions& options);

/// Whether the offsets of a dictionary are in 1/100 mm. Tickets written before the key existed hold
/// them as the dialogs show them: in 1/100 in, or in 1/10 mm when "Inches" is 0.
bool HasFullPrecision(const CFDictionary& ticket);

/// Whether a dictionary's offsets are shown in inches; they are when it does not say.
bool IsInInches(const CFDictionary& ticket);

/// An entry of such a dictionary as the dialogs show it, truncated towards 0; 0 when absent.
/// @return 1/100 in or 1/10 mm
std::int32_t ShiftOffsetFromTicket(const CFDictionary& ticket, std::string_view key);

} // namespace tarvo
