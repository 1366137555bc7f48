#pragma once

#include "cli/OptionTable.h"

#include <string>
#include <string_view>

namespace tarvo {

/// The row of a verb; null when there is no such verb.
const VerbRow* FindVerb(std::string_view name);

/// Answer to `tarvo-ticket --help`.
std::string ProgramHelp();

/// Answer to `tarvo-ticket VERB --help`.
std::string VerbHelp(const VerbRow& verb);

} // namespace tarvo
