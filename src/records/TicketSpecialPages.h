#pragma once

#include "platform/printing/PMStatus.h"
#include "records/ExceptionPageList.h"
#include "records/InsertList.h"

#include <optional>

namespace tarvo {

class PMTicket;

/// All special pages of a job.
struct TicketSpecialPages {
    std::optional<Cover> frontCover;
    std::optional<Cover> backCover;
    InsertList inserts;
    ExceptionPageList exceptions;
};

/// Reads the special pages of a job ticket. Ranges of exception pages that overlap are merged, the
/// later winning; what is no dictionary in a list is passed over.
TicketSpecialPages ReadSpecialPages(const PMTicket& ticket);

/// Writes them; what the job does not have is removed from the ticket.
/// @return StatusItemLocked when another client has locked an item, which then stays as it is; the
/// others are written all the same
OSStatus WriteSpecialPages(PMTicket& ticket, const TicketSpecialPages& pages);

// The covers by themselves. Those of a booklet are the two halves of one sheet, so its back cover
// is not written when there is none of its own or it equals the front cover, and when reading it is
// the front cover's twin, whatever the ticket holds for it.
void ReadCovers(const PMTicket& ticket, std::optional<Cover>& front, std::optional<Cover>& back);
OSStatus WriteCovers(PMTicket& ticket, const std::optional<Cover>& front,
                     const std::optional<Cover>& back);

} // namespace tarvo
