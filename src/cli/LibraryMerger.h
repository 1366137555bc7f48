#pragma once

#include "cli/ExitStatus.h"
#include "stocklibrary/StockLibrary.h"

#include <cstddef>
#include <string>
#include <vector>

namespace tarvo {

class CFBundle;

/// A paper from elsewhere for the user's library.
struct IncomingPaper {
    std::string source; // for messages
    StockLibrary entry; // its uuid is kept where it can be
};

struct MergeCounts {
    std::size_t added = 0;
    std::size_t replaced = 0;
    std::size_t present = 0; // equal to one that is there
};

/// "2 added, 0 replaced, 1 there already", a line in the user's language.
std::string MergeText(const CFBundle& bundle, const MergeCounts& counts);

/// @return why no paper can have the name, "has no name"; "" when it can
std::string FaultOfLibraryName(const std::string& name);

/// Puts the papers into the user's library in one step. Messages name those that are left out,
/// since the library has another paper of their name.
/// @param mayReplace  gives that one the stock instead
/// @return Done, LeftOut, or Failed with the library as it was
ExitStatus MergeIntoUserLibrary(std::vector<IncomingPaper>& papers, bool mayReplace,
                                MergeCounts& counts);

} // namespace tarvo
