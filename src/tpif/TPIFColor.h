#pragma once

#include "platform/cf/CFPropertyList.h"
#include "tpif/TPIFChannel.h"

#include <cstdint>
#include <string>

namespace tarvo {

/// A source or destination profile: one of the printer's own by number, or a custom one by name.
struct ProfileData {
    std::int32_t kind = UnsetValue;
    std::string name; // escaped; wins over the kind when not empty
};

/// The full-colour options of a job or a page; numbers are UnsetValue and texts "" when not given.
struct FullColorData {
    std::int32_t lightness = UnsetValue;
    std::int32_t contrast = UnsetValue;
    std::int32_t saturation = UnsetValue;
    std::int32_t cyanRed = UnsetValue;
    std::int32_t magentaGreen = UnsetValue;
    std::int32_t yellowBlue = UnsetValue;
    std::int32_t trapping = UnsetValue;
    std::int32_t trappingFast = UnsetValue;
    std::int32_t trappingSlow = UnsetValue;
    std::int32_t blackOverprint = UnsetValue;
    std::string trc; // escaped
    ProfileData rgbImages;
    ProfileData rgbTextAndGraphics;
    ProfileData cmykImages;
    ProfileData cmykTextAndGraphics;
    ProfileData grayImages; // names only
    ProfileData grayTextAndGraphics;
    ProfileData destination;
    std::int32_t imageRendering = UnsetValue;
    std::int32_t textRendering = UnsetValue;
    std::int32_t graphicRendering = UnsetValue;
    std::int32_t antialiasing = UnsetValue; // of a page; the job has an entry of its own
    std::int32_t outputColor = UnsetValue;  // likewise
};

FullColorData FillFullColorOptions(const CFDictionary& options);

void WriteTPifFullColor(TPIFChannel& writeData, const FullColorData& color);

/// The elements of the highlight colour options in the dictionary; those without a key or a word
/// are left out.
void WriteTPIFHighlightColor(TPIFChannel& writeData, const CFDictionary& options);

/// The halftone of graphics, images and text, one and the same; an unknown screen writes nothing.
void WriteTPifHalfTone(TPIFChannel& writeData, std::int32_t screen);

} // namespace tarvo
