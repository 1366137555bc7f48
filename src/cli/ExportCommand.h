#pragma once

#include "cli/Arguments.h"
#include "cli/ExitStatus.h"

namespace tarvo {

/// `tarvo-ticket export`: writes each ticket's document.
/// @param arguments  of the verb, by the long names of OptionMap
ExitStatus RunExport(const Arguments& arguments);

} // namespace tarvo
