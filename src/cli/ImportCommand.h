#pragma once

#include "cli/Arguments.h"
#include "cli/ExitStatus.h"

namespace tarvo {

/// `tarvo-ticket import`: reads documents into a ticket.
/// @param arguments  of the verb, by the long names of OptionMap
ExitStatus RunImport(const Arguments& arguments);

} // namespace tarvo
