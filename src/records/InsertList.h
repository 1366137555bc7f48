#pragma once

#include "records/SpecialPageList.h"

namespace tarvo {

/// Inserts. Any number may follow one page, in the order in which they were added.
class InsertList : public SpecialPageList {
public:
    const Insert* pageAtIndex(std::int32_t index) const override;
    OSStatus add(std::span<const SpecialPage* const> newPages) override;
};

} // namespace tarvo
