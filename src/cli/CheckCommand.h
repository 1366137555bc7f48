#pragma once

#include "cli/Arguments.h"
#include "cli/ExitStatus.h"

namespace tarvo {

/// Runs "tarvo-ticket check". A file that cannot be read is named and the others are checked.
ExitStatus RunCheck(const Arguments& arguments);

} // namespace tarvo
