#include "records/TicketSpecialPages.h"

#include "platform/printing/PMTicket.h"
#include "settings/TicketKeys.h"

namespace tarvo {
namespace {

template <typename Page>
void ReadList(const PMTicket& ticket, std::string_view key, SpecialPageList& list)
{
    const CFArray* array = nullptr;
    if (ticket.getArray(key, &array) != StatusOk) {
        return;
    }
    std::vector<Page> pages;
    pages.reserve(array->size());
    for (const CFPropertyList& entry : *array) {
        if (const auto* dictionary = entry.get<CFDictionary>()) {
            pages.emplace_back(*dictionary);
        }
    }
    std::vector<const SpecialPage*> borrowed;
    borrowed.reserve(pages.size());
    for (const Page& page : pages) {
        borrowed.push_back(&page);
    }
    list.add(borrowed);
}

std::optional<Cover> ReadCover(const PMTicket& ticket, std::string_view key)
{
    const CFDictionary* dictionary = nullptr;
    return ticket.getDictionary(key, &dictionary) == StatusOk ? std::optional<Cover>(*dictionary)
                                                              : std::nullopt;
}

// An absent value removes the item.
template <typename Value>
OSStatus WriteItem(PMTicket& ticket, std::string_view key, std::optional<Value> value)
{
    if (value) {
        return ticket.setItem(SpecialPagesClient, key, std::move(*value));
    }
    const OSStatus status = ticket.removeItem(SpecialPagesClient, key);
    return status == StatusItemNotFound ? StatusOk : status;
}

std::optional<CFDictionary> AsTicket(const std::optional<Cover>& cover)
{
    return cover ? std::optional(cover->asTicket()) : std::nullopt;
}

bool IsBooklet(const PMTicket& ticket)
{
    bool isBooklet = false;
    ticket.getBoolean(BookletLayoutKey, &isBooklet);
    return isBooklet;
}

OSStatus FirstFailure(std::initializer_list<OSStatus> statuses)
{
    for (const OSStatus status : statuses) {
        if (status != StatusOk) {
            return status;
        }
    }
    return StatusOk;
}

} // namespace

void ReadCovers(const PMTicket& ticket, std::optional<Cover>& front, std::optional<Cover>& back)
{
    front = ReadCover(ticket, FrontCoverKey);
    back = front && IsBooklet(ticket) ? front : ReadCover(ticket, BackCoverKey);
}

OSStatus WriteCovers(PMTicket& ticket, const std::optional<Cover>& front,
                     const std::optional<Cover>& back)
{
    const bool backIsTwin = front && (!back || *back == *front) && IsBooklet(ticket);
    return FirstFailure({
        WriteItem(ticket, FrontCoverKey, AsTicket(front)),
        WriteItem(ticket, BackCoverKey, backIsTwin ? std::nullopt : AsTicket(back)),
    });
}

TicketSpecialPages ReadSpecialPages(const PMTicket& ticket)
{
    TicketSpecialPages pages;
    ReadCovers(ticket, pages.frontCover, pages.backCover);
    ReadList<Insert>(ticket, InsertListKey, pages.inserts);
    ReadList<ExceptionPage>(ticket, ExceptionListKey, pages.exceptions);
    return pages;
}

OSStatus WriteSpecialPages(PMTicket& ticket, const TicketSpecialPages& pages)
{
    return FirstFailure({
        WriteItem(ticket, InsertListKey, pages.inserts.asTicket()),
        WriteItem(ticket, ExceptionListKey, pages.exceptions.asTicket()),
        WriteCovers(ticket, pages.frontCover, pages.backCover),
    });
}

} // namespace tarvo
