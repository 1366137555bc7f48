#pragma once

#include "platform/cf/CFPropertyList.h"
#include "tpif/TPIFChannel.h"

#include <cstdint>
#include <string>

namespace tarvo {

/// The set's parts by index; a part that is not there is NoFinishing.
struct FinishingData {
    static constexpr std::int32_t NoFinishing = -1;

    std::int32_t staple = NoFinishing;
    std::int32_t fold = NoFinishing;
    std::int32_t punch = NoFinishing;
    std::int32_t holes = NoFinishing;
    std::string templateName; // escaped; written in place of the parts when not empty
};

/// Whether the ticket's number of a finishing family is one; 0, for nothing chosen, is.
bool IsFinishingFamily(std::int32_t option);

/// Slip sheets, finishing, offset; says on standard error what it read.
void WriteTPIFFinishing(TPIFChannel& writeData, const CFDictionary& settings);

void WriteTPifFinishing(TPIFChannel& writeData, const FinishingData& finishing);

void WriteTPIFOffset(TPIFChannel& writeData, const CFDictionary& settings);

} // namespace tarvo
