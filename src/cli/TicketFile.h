#pragma once

#include "platform/cf/CFPropertyList.h"
#include "platform/xml/XmlLimits.h"

#include <optional>
#include <string>
#include <string_view>

namespace tarvo {

/// Reads a job ticket, the dictionary of an XML property list.
/// @param input  "-" is standard input
/// @param error  why there is none
std::optional<CFDictionary> ReadTicket(const std::string& input, ParseError& error);

/// Writes a result to a file, which is replaced whole or not at all; "-" is standard output.
/// @return false with a message printed
bool WriteOutput(const std::string& output, std::string_view text);

/// The same for a job ticket, as an XML property list of which no whole text is made.
bool WriteTicket(const std::string& output, CFDictionary ticket);

} // namespace tarvo
