#pragma once

#include "platform/cf/CFPropertyList.h"

#include <string>

namespace tarvo {

/// Throws std::runtime_error when a case is not what was wanted of it.
void Require(bool isMet, const std::string& wanted);

/// Reads the inside of a dictionary as the case files write it; TPIFCasesTest.cpp says how.
CFDictionary TicketFromText(const std::string& text);

} // namespace tarvo
