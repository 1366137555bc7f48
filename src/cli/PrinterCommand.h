#pragma once

#include "cli/Arguments.h"
#include "cli/ExitStatus.h"

namespace tarvo {

/// The verb "printer": what the printer of a PPD file offers, in words or as JSON.
ExitStatus RunPrinter(const Arguments& arguments);

} // namespace tarvo
