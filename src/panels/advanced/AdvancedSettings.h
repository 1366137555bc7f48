#pragma once

#include "platform/printing/PMTicket.h"

#include <cstdint>

namespace tarvo {

/// The values of the advanced panel. Those that its controls lack are kept as they came.
struct AdvancedSettings {
    std::int32_t bookletLayoutOrder = 2; // a value of BookletLayoutOrderMap
    std::int32_t rotateImage = 1;        // a value of RotateImageMap: the ticket's number and 1
    std::int32_t emitJobTicket = 1;      // 0 or 1: the ticket goes with the job as a document
    std::int32_t quillonEmulation = 1;   // read only, has no control

    bool operator==(const AdvancedSettings&) const = default;
};

/// What is missing in the ticket gets its default.
/// @return the status of reading the rotation: StatusItemNotFound when the ticket has none
OSStatus ReadAdvancedSettings(const PMTicket& ticket, AdvancedSettings& settings);

/// Writes all but what is read only.
void WriteAdvancedSettings(const AdvancedSettings& settings, PMTicket& ticket);

} // namespace tarvo
