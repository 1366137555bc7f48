#include "records/SpecialPageList.h"

#include <algorithm>
#include <iterator>

namespace tarvo {

SpecialPageList::SpecialPageList(const SpecialPageList& other)
{
    *this = other;
}

SpecialPageList& SpecialPageList::operator=(const SpecialPageList& other)
{
    Pages clones;
    clones.reserve(other.pages_.size());
    std::transform(other.pages_.begin(), other.pages_.end(), std::back_inserter(clones),
                   [](const auto& page) { return page->clone(); });
    pages_ = std::move(clones);
    return *this;
}

const SpecialPage* SpecialPageList::pageAtIndex(std::int32_t index) const
{
    return index < 0 || index >= count() ? nullptr : pages_[static_cast<std::size_t>(index)].get();
}

SpecialPageList::Pages::iterator SpecialPageList::placeOf(const SpecialPage* page)
{
    return std::find_if(pages_.begin(), pages_.end(),
                        [page](const auto& each) { return each.get() == page; });
}

void SpecialPageList::remove(const SpecialPage* page)
{
    const auto place = placeOf(page);
    if (place != pages_.end()) {
        pages_.erase(place);
    }
}

OSStatus SpecialPageList::update(const SpecialPage& old,
                                 std::span<const SpecialPage* const> newPages)
{
    const auto place = placeOf(&old);
    if (place == pages_.end()) {
        return StatusOk;
    }
    const auto position = place - pages_.begin();
    auto taken = std::move(*place); // stays alive: the new pages may be read from it
    pages_.erase(place);
    const OSStatus status = add(newPages);
    if (status != StatusOk) {
        pages_.insert(pages_.begin() + position, std::move(taken));
    }
    return status;
}

std::optional<CFArray> SpecialPageList::asTicket() const
{
    if (pages_.empty()) {
        return std::nullopt;
    }
    CFArray ticket;
    ticket.reserve(pages_.size());
    for (const auto& page : pages_) {
        ticket.emplace_back(page->asTicket());
    }
    return ticket;
}

SpecialPageList::Pages SpecialPageList::ClonesOf(std::span<const SpecialPage* const> pages)
{
    Pages clones;
    clones.reserve(pages.size());
    for (const SpecialPage* page : pages) {
        clones.push_back(page->clone());
    }
    return clones;
}

bool SpecialPageList::StartsBefore(const std::unique_ptr<SpecialPage>& page,
                                   const std::unique_ptr<SpecialPage>& other)
{
    return page->startPage() < other->startPage();
}

} // namespace tarvo
