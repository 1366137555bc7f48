#pragma once

#include "records/FinishingSummary.h"
#include "support/TicketText.h"

#include <string>

namespace tarvo {

/// A choice from entries of the ticket such as "Options: 9, Staple2Value: 13, BookletLayout: true";
/// what their keys begin with is left out.
inline FinishingChoice FinishingOf(const std::string& entries)
{
    CFDictionary ticket;
    for (const auto& [key, value] : TicketFromText(entries)) {
        const std::string start = key.starts_with("Booklet") ? "" : "Finishing";
        ticket.set("com.tarvo.print." + start + key, value);
    }
    return FinishingChoice(ticket);
}

} // namespace tarvo
