#pragma once

#include "cli/TicketPlace.h"
#include "platform/xml/XmlLimits.h"

#include <optional>
#include <string>
#include <vector>

namespace tarvo {

/// What a check has found in a file.
struct CheckedFile {
    std::string file;                // by its name for people
    const char* kind = nullptr;      // "ticket" or "document"; null when it is neither
    std::optional<ParseError> error; // of an unreadable file; there are no findings then
    Findings findings;
};

/// "file:line: entry reason" for each finding, then a line that sums them up.
std::string CheckText(const std::vector<CheckedFile>& files);

/// For a program: {"files": an object for each with the members of CheckedFile}.
std::string CheckJson(const std::vector<CheckedFile>& files);

} // namespace tarvo
