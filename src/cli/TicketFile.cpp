#include "cli/TicketFile.h"

#include "cli/Input.h"

namespace tarvo {

std::optional<CFDictionary> ReadTicket(const std::string& input, ParseError& error)
{
    error = ParseError();
    const auto contents = ReadInput(input, PropertyListLimits.bytes, error.reason);
    if (!contents) {
        return std::nullopt;
    }
    return ReadPropertyListDictionary(*contents, error);
}

} // namespace tarvo
