#pragma once

#include "cli/Arguments.h"
#include "cli/ExitStatus.h"

namespace tarvo {

/// `tarvo-ticket show`.
ExitStatus RunShow(const Arguments& arguments);

} // namespace tarvo
