#include "records/ImageShiftOptions.h"

#include "platform/bundle/CFBundle.h"
#include "records/ImageShiftKeys.h"
#include "settings/ImageMaps.h"
#include "settings/TicketAccess.h"

#include <algorithm>
#include <limits>

namespace tarvo {
namespace {

// 25.4 as a fraction: whole numbers know no rounding but the one asked for.
constexpr std::int64_t TenthsOfMillimetersPerInch = 254;

// @return 1/100 mm, to the nearest; 25.4 times a whole number never lies midway
std::int32_t FullPrecisionOffset(std::int32_t offset, bool isInches)
{
    const std::int64_t scaled =
        isInches ? (offset * TenthsOfMillimetersPerInch + (offset < 0 ? -5 : 5)) / 10
                 : std::int64_t{offset} * 10;
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(scaled, std::numeric_limits<std::int32_t>::min(),
                                 std::numeric_limits<std::int32_t>::max()));
}

std::int32_t OffsetFromFullPrecision(std::int64_t hundredthsOfMillimeter, bool isInches)
{
    return static_cast<std::int32_t>(isInches
                                         ? hundredthsOfMillimeter * 10 / TenthsOfMillimetersPerInch
                                         : hundredthsOfMillimeter / 10);
}

} // namespace

bool HasFullPrecision(const CFDictionary& ticket)
{
    return ticket.isTrue(ShiftFullPrecisionKey) ||
           IsNonZeroNumber(ticket.find(ShiftFullPrecisionKey));
}

bool IsInInches(const CFDictionary& ticket)
{
    return ticket.int32(ShiftInchesKey) != 0;
}

std::int32_t ShiftOffsetFromTicket(const CFDictionary& ticket, std::string_view key)
{
    const std::int32_t stored = ticket.int32(key).value_or(0);
    return HasFullPrecision(ticket) ? OffsetFromFullPrecision(stored, IsInInches(ticket)) : stored;
}

CFDictionary ImageShiftCreateTicketFromOptions(const ImageShiftOptions& options)
{
    CFDictionary ticket;
    const auto writeOffset = [&](std::string_view key, std::int32_t offset) {
        WriteTicketValue(ticket, key, FullPrecisionOffset(offset, options.isInches));
    };
    WriteTicketValue(ticket, ShiftTwoSidedModeKey, options.twoSidedMode);
    WriteTicketValue(ticket, ShiftInchesKey, options.isInches ? 1 : 0);
    ticket.set(ShiftFullPrecisionKey, true);
    writeOffset(ShiftX1Key, options.x1);
    writeOffset(ShiftY1Key, options.y1);
    writeOffset(ShiftX2Key, options.x2);
    writeOffset(ShiftY2Key, options.y2);
    return ticket;
}

void ImageShiftSetOptionsFromTicket(ImageShiftOptions& options, const CFDictionary& ticket)
{
    options = {
        .isValid = true,
        .twoSidedMode = ticket.int32(ShiftTwoSidedModeKey).value_or(UnsetValue),
        .isInches = IsInInches(ticket),
        .x1 = ShiftOffsetFromTicket(ticket, ShiftX1Key),
        .y1 = ShiftOffsetFromTicket(ticket, ShiftY1Key),
        .x2 = ShiftOffsetFromTicket(ticket, ShiftX2Key),
        .y2 = ShiftOffsetFromTicket(ticket, ShiftY2Key),
    };
}

std::string ImageShiftDescription(const CFBundle& bundle, const ImageShiftOptions& options)
{
    if (options.twoSidedMode == UnsetValue) {
        return "";
    }
    const char* mode = LocalizedKeyForTicketValue(ImageShiftOptions2SidedMap, options.twoSidedMode);
    return bundle.localizedString("ImageShift") + bundle.localizedString(":") +
           bundle.localizedString(mode);
}

} // namespace tarvo
