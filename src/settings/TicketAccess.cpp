#include "settings/TicketAccess.h"

#include "platform/cf/CFPropertyList.h"
#include "platform/printing/PMPrintSession.h"

namespace tarvo {

bool GetCFIndexFromCFDictionary(const CFDictionary* dictionary, std::string_view key,
                                std::int32_t* value)
{
    if (dictionary == nullptr || value == nullptr) {
        return false;
    }
    const auto number = dictionary->int32(key);
    if (number) {
        *value = *number;
    }
    return number.has_value();
}

void WriteTicketValue(CFDictionary& dictionary, std::string_view key, std::int32_t value)
{
    dictionary.set(key, value);
}

void WriteTicketValueIfSet(CFDictionary& dictionary, std::string_view key, std::int32_t value)
{
    if (value != UnsetValue) {
        WriteTicketValue(dictionary, key, value);
    }
}

OSStatus GetTicketFromSession(const PMPrintSession* session, std::string_view name,
                              PMTicket** ticket)
{
    if (session == nullptr || ticket == nullptr) {
        return StatusBadArgument;
    }
    if (PMTicket* present = session->ticket(name)) {
        *ticket = present;
    }
    return StatusOk;
}

} // namespace tarvo
