#pragma once

#include "platform/printing/PMStatus.h"

#include <cstdint>
#include <string_view>

namespace tarvo {

class CFDictionary;
class PMPrintSession;
class PMTicket;

/// Reads a number by the rule of Int32Value.
/// @return false, with `value` untouched, when the dictionary or `value` is null, the key absent or
/// its value no such number
bool GetCFIndexFromCFDictionary(const CFDictionary* dictionary, std::string_view key,
                                std::int32_t* value);

/// Stores a number under the key, replacing a value of any type.
void WriteTicketValue(CFDictionary& dictionary, std::string_view key, std::int32_t value);

/// Likewise; UnsetValue writes nothing and leaves a present value.
void WriteTicketValueIfSet(CFDictionary& dictionary, std::string_view key, std::int32_t value);

/// Finds a session's ticket, borrowed from the session.
/// @param name  JobTicketName or PrinterInfoTicketName
/// @return StatusOk with `ticket` untouched when the session has none of that name: initialize it
/// to null. StatusBadArgument when the session or `ticket` is null.
OSStatus GetTicketFromSession(const PMPrintSession* session, std::string_view name,
                              PMTicket** ticket);

} // namespace tarvo
