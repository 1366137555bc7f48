#pragma once

#include "cli/Arguments.h"
#include "cli/ExitStatus.h"

namespace tarvo {

/// `tarvo-ticket from-job`.
ExitStatus RunFromJob(const Arguments& arguments);

} // namespace tarvo
