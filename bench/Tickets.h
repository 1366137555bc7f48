#pragma once

#include "platform/cf/CFPropertyList.h"

namespace tarvo {

/// A stapled two-sided job on white paper, with notes.
CFDictionary SmallTicket();

/// The small ticket with that many exception pages, each on a stock of its own.
CFDictionary TicketWithExceptions(int count);

/// The small ticket with that many exception pages of some 700 bytes in a document: a stock in
/// three words.
CFDictionary TicketWithPlainExceptions(int count);

/// The small ticket with that many inserts.
CFDictionary TicketWithInserts(int count);

} // namespace tarvo
