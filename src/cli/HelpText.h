#pragma once

#include "cli/OptionTable.h"

#include <string>
#include <string_view>

namespace tarvo {

/// The row of a verb; null when there is no such verb.
const VerbRow* FindVerb(std::string_view name);

/// Whether verbs of two words begin with that one.
bool IsVerbGroup(std::string_view word);

/// The second words of the group's verbs, "list, add, remove".
std::string VerbsOfGroup(std::string_view group);

/// Answer to `tarvo-ticket --help`.
std::string ProgramHelp();

/// Answer to `tarvo-ticket GROUP --help`.
std::string GroupHelp(std::string_view group);

/// Answer to `tarvo-ticket VERB --help`.
std::string VerbHelp(const VerbRow& verb);

} // namespace tarvo
