#pragma once

#include "cli/Arguments.h"
#include "cli/ExitStatus.h"

namespace tarvo {

// The group "watermarks".

ExitStatus RunWatermarksList(const Arguments& arguments);

} // namespace tarvo
