#pragma once

#include "platform/cf/CFPropertyList.h"

namespace tarvo {

/// Whether a job may not be printed: it is a secure one and has no passcode, or an empty one.
/// @param jobType  the job type's dictionary; null when no panel sets it
bool LacksPasscode(const CFDictionary* jobType);

} // namespace tarvo
