#pragma once

#include "platform/printing/PMStatus.h"
#include "records/SpecialPages.h"

#include <optional>
#include <span>
#include <vector>

namespace tarvo {

/// Special pages of one kind in the order of their start pages. The list owns its pages and hands
/// them out unchangeable, so that nothing but its own rule moves them.
class SpecialPageList {
public:
    virtual ~SpecialPageList() = default;

    std::int32_t count() const { return static_cast<std::int32_t>(pages_.size()); }
    /// @return the page, borrowed until the next change; null unless 0 <= index < count()
    virtual const SpecialPage* pageAtIndex(std::int32_t index) const;

    /// Puts copies of the pages in, one after the other, by the rule of the kind of list.
    /// @return StatusBadArgument, with nothing changed, when one is null or of another kind
    virtual OSStatus add(std::span<const SpecialPage* const> newPages) = 0;

    /// Takes that very page out; another is passed over, even an equal one.
    void remove(const SpecialPage* page);
    void clear() { pages_.clear(); }

    /// Replaces a page by others as if it were removed and they were added; one that is not in the
    /// list changes nothing.
    /// @return what `add` returns; on failure the list is as it was
    OSStatus update(const SpecialPage& old, std::span<const SpecialPage* const> newPages);

    /// The pages' dictionaries in their order; nullopt when there are none.
    std::optional<CFArray> asTicket() const;

protected:
    using Pages = std::vector<std::unique_ptr<SpecialPage>>;

    SpecialPageList() = default;
    SpecialPageList(const SpecialPageList& other);
    SpecialPageList(SpecialPageList&&) noexcept = default;
    SpecialPageList& operator=(const SpecialPageList& other);
    SpecialPageList& operator=(SpecialPageList&&) noexcept = default;

    Pages& pages() { return pages_; }

    static Pages ClonesOf(std::span<const SpecialPage* const> pages);
    static bool StartsBefore(const std::unique_ptr<SpecialPage>& page,
                             const std::unique_ptr<SpecialPage>& other);

private:
    // Compares addresses alone: the page may be gone.
    Pages::iterator placeOf(const SpecialPage* page);

    Pages pages_;
};

/// Whether all are there and of that kind.
template <typename Page>
bool AreAll(std::span<const SpecialPage* const> pages)
{
    for (const SpecialPage* page : pages) {
        if (dynamic_cast<const Page*>(page) == nullptr) {
            return false;
        }
    }
    return true;
}

} // namespace tarvo
