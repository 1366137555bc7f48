#include "records/ExceptionPageList.h"

#include <algorithm>
#include <iterator>
#include <map>

namespace tarvo {
namespace {

using PagePointer = std::unique_ptr<SpecialPage>;

struct Range {
    std::int32_t first;
    std::int32_t last;
};

ExceptionPage& AsException(const PagePointer& page)
{
    return static_cast<ExceptionPage&>(*page); // add lets no other in
}

Range RangeOf(const PagePointer& page)
{
    return {page->startPage(), AsException(page).endPage()};
}

void SetRange(const PagePointer& page, Range range)
{
    page->setStartPage(range.first);
    AsException(page).setEndPage(range.last);
}

bool CoversNothing(const PagePointer& page)
{
    const Range range = RangeOf(page);
    return range.last < range.first;
}

// Page numbers that are taken, as ranges apart from one another. Each range costs a logarithm, in
// whatever order they come: a ticket that lists its pages backwards is no slower.
class TakenPages {
public:
    // @return the parts of the range that were free, in order; now all of it is taken
    std::vector<Range> take(const Range& range)
    {
        std::vector<Range> free;
        Range taken = range;
        std::int64_t next = range.first; // 64 bits: the last number has one after it
        auto present = firstEndingAt(range.first);
        while (present != lastOfFirst_.end() && present->first <= range.last) {
            if (next < present->first) {
                free.push_back({static_cast<std::int32_t>(next), present->first - 1});
            }
            next = std::int64_t{present->second} + 1;
            taken = {std::min(taken.first, present->first), std::max(taken.last, present->second)};
            present = lastOfFirst_.erase(present);
        }
        if (next <= range.last) {
            free.push_back({static_cast<std::int32_t>(next), range.last});
        }
        lastOfFirst_.emplace(taken.first, taken.last);
        return free;
    }

private:
    using Ranges = std::map<std::int32_t, std::int32_t>;

    // The first range that ends at that page or behind it.
    Ranges::iterator firstEndingAt(std::int32_t page)
    {
        const auto behind = lastOfFirst_.upper_bound(page);
        const bool hasBefore = behind != lastOfFirst_.begin();
        return hasBefore && std::prev(behind)->second >= page ? std::prev(behind) : behind;
    }

    Ranges lastOfFirst_;
};

// Leaves each page what no later one covers, and sorts the parts.
std::vector<PagePointer> LaterOverEarlier(std::vector<PagePointer> pages)
{
    TakenPages taken;
    std::vector<PagePointer> parts;
    parts.reserve(pages.size());
    for (auto page = pages.rbegin(); page != pages.rend(); ++page) {
        const auto free = taken.take(RangeOf(*page));
        for (std::size_t number = free.size(); number-- > 0;) {
            parts.push_back(number == 0 ? std::move(*page) : (*page)->clone());
            SetRange(parts.back(), free[number]);
        }
    }
    std::sort(parts.begin(), parts.end(), [](const PagePointer& part, const PagePointer& other) {
        return part->startPage() < other->startPage();
    });
    return parts;
}

Range RangeAround(const std::vector<PagePointer>& pages)
{
    Range around = RangeOf(pages.front());
    for (const auto& page : pages) {
        const Range range = RangeOf(page);
        around = {std::min(around.first, range.first), std::max(around.last, range.last)};
    }
    return around;
}

} // namespace

const ExceptionPage* ExceptionPageList::pageAtIndex(std::int32_t index) const
{
    return dynamic_cast<const ExceptionPage*>(SpecialPageList::pageAtIndex(index));
}

// Only the pages that the new ones may touch are looked at; those around them just move over.
OSStatus ExceptionPageList::add(std::span<const SpecialPage* const> newPages)
{
    if (!AreAll<ExceptionPage>(newPages)) {
        return StatusBadArgument;
    }
    Pages added = ClonesOf(newPages);
    std::erase_if(added, CoversNothing);
    if (added.empty()) {
        return StatusOk;
    }
    const Range around = RangeAround(added);
    const auto first =
        std::partition_point(pages().begin(), pages().end(), [&around](const auto& page) {
            return RangeOf(page).last < around.first;
        });
    const auto last = std::partition_point(first, pages().end(), [&around](const auto& page) {
        return page->startPage() <= around.last;
    });
    Pages merged(std::make_move_iterator(first), std::make_move_iterator(last));
    std::move(added.begin(), added.end(), std::back_inserter(merged));
    merged = LaterOverEarlier(std::move(merged));
    const auto common = std::min(last - first, std::ssize(merged));
    const auto rest = std::move(merged.begin(), merged.begin() + common, first);
    pages().insert(pages().erase(rest, last), std::make_move_iterator(merged.begin() + common),
                   std::make_move_iterator(merged.end()));
    return StatusOk;
}

} // namespace tarvo
