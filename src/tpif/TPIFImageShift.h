#pragma once

#include "platform/cf/CFPropertyList.h"
#include "tpif/TPIFChannel.h"

#include <cstdint>

namespace tarvo {

/// Offsets of the page image, in hundredths of a millimetre unless the ticket was written before it
/// knew full precision.
struct ImageShiftData {
    std::int32_t x1 = 0; // side 1
    std::int32_t y1 = 0;
    std::int32_t x2 = 0; // side 2
    std::int32_t y2 = 0;
};

/// Reads the offsets: as they stand with full precision; else millimetres times 10, inches times
/// 25.4 towards zero, held at the ends of 32 bits.
ImageShiftData FillImageShift(const CFDictionary& shift);

/// The four offsets, one line each, x before y.
void WriteTPifImageShift(TPIFChannel& writeData, int indent, const ImageShiftData& shift);

} // namespace tarvo
