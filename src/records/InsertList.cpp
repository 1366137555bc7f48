#include "records/InsertList.h"

#include <algorithm>
#include <iterator>

namespace tarvo {

const Insert* InsertList::pageAtIndex(std::int32_t index) const
{
    return dynamic_cast<const Insert*>(SpecialPageList::pageAtIndex(index));
}

// All at once, as if each went before the first insert with a greater start page: sorting and
// merging keep the order of equal ones.
OSStatus InsertList::add(std::span<const SpecialPage* const> newPages)
{
    if (!AreAll<Insert>(newPages)) {
        return StatusBadArgument;
    }
    Pages added = ClonesOf(newPages);
    if (added.empty()) {
        return StatusOk;
    }
    std::stable_sort(added.begin(), added.end(), StartsBefore);
    const auto present = std::ssize(pages());
    pages().insert(pages().end(), std::make_move_iterator(added.begin()),
                   std::make_move_iterator(added.end()));
    const auto middle = pages().begin() + present;
    const auto place = std::upper_bound(pages().begin(), middle, *middle, StartsBefore);
    std::inplace_merge(place, middle, pages().end(), StartsBefore);
    return StatusOk;
}

} // namespace tarvo
