#pragma once

#include "cli/TicketReport.h"
#include "records/SheetPlan.h"

namespace tarvo {

struct TicketSpecialPages;

/// What a plan of the ticket's sheets starts from.
/// @param pages  of the job's body
PlannedJob PlannedJobOf(const CFDictionary& ticket, std::int32_t pages);

/// The plan in words.
TicketReport::Plan DescribePlan(const PlannedJob& job, const TicketSpecialPages& special,
                                const CFBundle& bundle);

} // namespace tarvo
