#pragma once

#include "cli/TicketReport.h"
#include "records/SheetPlan.h"

namespace tarvo {

struct TicketSpecialPages;

/// The two-sided mode, a value of DuplexMap: the print dialog's own, else the system's.
std::optional<std::int32_t> SidesOfJob(const CFDictionary& ticket);

/// What a plan of the ticket's sheets starts from.
/// @param pages  of the job's body
PlannedJob PlannedJobOf(const CFDictionary& ticket, std::int32_t pages);

/// The plan in words.
TicketReport::Plan DescribePlan(const PlannedJob& job, const TicketSpecialPages& special,
                                const CFBundle& bundle);

} // namespace tarvo
