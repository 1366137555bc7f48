#pragma once

#include "platform/cf/CFPropertyList.h"
#include "platform/cf/PropertyListReader.h"

#include <optional>
#include <string>

namespace tarvo {

/// Reads a job ticket, the dictionary of an XML property list.
/// @param input  "-" is standard input
/// @param error  why there is none
std::optional<CFDictionary> ReadTicket(const std::string& input, ParseError& error);

} // namespace tarvo
