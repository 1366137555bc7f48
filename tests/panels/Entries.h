#pragma once

#include "platform/cf/CFPropertyList.h"

#include <utility>
#include <vector>

namespace tarvo {

/// A dictionary as a test writes it down: Entries({{"JobType", 3}, {"SavedJobName", "Menu"}}).
inline CFDictionary Entries(std::vector<CFDictionary::Entry> entries)
{
    return CFDictionary(std::move(entries));
}

} // namespace tarvo
