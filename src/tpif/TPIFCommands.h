#pragma once

#include "tpif/TPIFChannel.h"

#include <cstdint>

namespace tarvo {

/// Numbers of the simple elements. 15 has no element.
namespace TPIFCommand {
enum : std::int32_t {
    Copies = 0,
    SheetCollate = 1,
    Sides = 2,
    Orientation = 3,
    OutputBin = 4,
    LightenDarken = 5,
    TonerSaver = 6,
    JobOffset = 7,
    PagesPerSubset = 8,
    DarknessMode = 9,
    PageRotation = 10,
    SlipSheets = 11,
    OPIImageInsertion = 12,
    OPIPreScan = 13,
    AntiAliasing = 14,
    Halftone = 15,
    Lightness = 16,
    Contrast = 17,
    Saturation = 18,
    CyanRed = 19,
    MagentaGreen = 20,
    YellowBlue = 21,
    Trapping = 22,
    TrapWidthFast = 23,
    TrapWidthSlow = 24,
    BlackOverprint = 25,
    RenderingImages = 26,
    RenderingText = 27,
    RenderingGraphics = 28,
    PageDelivery = 29,
    ColorEffects = 30,
};
} // namespace TPIFCommand

/// Writes the element that the command selects, the value being or selecting its content. A value
/// without a word, and a command without an element, writes nothing.
void WriteTPifCommands(TPIFChannel& writeData, std::int32_t command, std::int32_t value);

} // namespace tarvo
