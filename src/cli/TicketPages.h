#pragma once

#include "cli/TicketReport.h"

#include <vector>

namespace tarvo {

struct TicketSource;
struct TicketSpecialPages;

/// Covers, inserts and exception pages in the order of the panel's list; their attributes say more
/// than the list has room for.
std::vector<TicketReport::SpecialPage> DescribeSpecialPages(const TicketSource& source,
                                                            const TicketSpecialPages& special);

} // namespace tarvo
