#include "cli/TicketFile.h"

#include "platform/files/FileContents.h"

#include <unistd.h>

namespace tarvo {

std::optional<CFDictionary> ReadTicket(const std::string& input, ParseError& error)
{
    std::string reason;
    const auto contents =
        input == "-" ? ReadDescriptorContents(STDIN_FILENO, PropertyListLimits.bytes, reason)
                     : ReadFileContents(input, PropertyListLimits.bytes, reason);
    if (!contents) {
        error = ParseError{0, "cannot read: " + reason};
        return std::nullopt;
    }
    return ReadPropertyListDictionary(*contents, error);
}

} // namespace tarvo
