#pragma once

#include "platform/cf/CFPropertyList.h"
#include "tpif/TPIFChannel.h"

namespace tarvo {

/// The form that the job is saved as, and the form that it is merged with; says on standard error
/// what it found. Form names are cut to 255 bytes.
void WriteTPIFBackgroundForms(TPIFChannel& writeData, const CFDictionary& settings);

} // namespace tarvo
