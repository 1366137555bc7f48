#pragma once

#include "cli/TicketPlace.h"

namespace tarvo {

/// Looks for what no part of this system expects in a ticket: keys of ours that are none, values of
/// another kind, numbers and lengths outside their limits. The text of a value is never told.
void CheckTicketEntries(const TicketPlace& ticket, Findings& findings);

/// Looks for entries that are fine by themselves and do not go together.
void CheckTicketContradictions(const TicketPlace& ticket, Findings& findings);

} // namespace tarvo
