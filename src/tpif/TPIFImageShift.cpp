#include "tpif/TPIFImageShift.h"

#include "records/ImageShiftKeys.h"
#include "records/ImageShiftOptions.h"
#include "tpif/TPIFElement.h"

#include <algorithm>
#include <limits>

namespace tarvo {
namespace {

constexpr double MillimetersPerInch = 25.4;

std::int32_t Scaled(std::int32_t offset, double factor)
{
    constexpr double Lowest = std::numeric_limits<std::int32_t>::min();
    constexpr double Highest = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::clamp(offset * factor, Lowest, Highest));
}

} // namespace

ImageShiftData FillImageShift(const CFDictionary& shift)
{
    const double factor = HasFullPrecision(shift) ? 1 : IsInInches(shift) ? MillimetersPerInch : 10;
    const auto offset = [&shift, factor](std::string_view key) {
        return Scaled(shift.int32(key).value_or(0), factor);
    };
    return {offset(ShiftX1Key), offset(ShiftY1Key), offset(ShiftX2Key), offset(ShiftY2Key)};
}

void WriteTPifImageShift(TPIFChannel& writeData, int indent, const ImageShiftData& shift)
{
    WriteTPIFElement(writeData, indent, "x-side1-image-shift", shift.x1);
    WriteTPIFElement(writeData, indent, "x-side2-image-shift", shift.x2);
    WriteTPIFElement(writeData, indent, "y-side1-image-shift", shift.y1);
    WriteTPIFElement(writeData, indent, "y-side2-image-shift", shift.y2);
}

} // namespace tarvo
