#pragma once

#include "records/SpecialPageList.h"

namespace tarvo {

/// Exception pages. Their ranges never overlap.
class ExceptionPageList : public SpecialPageList {
public:
    const ExceptionPage* pageAtIndex(std::int32_t index) const override;
    /// A new range wins over the pages that it covers: ranges of before are cut short, split in two
    /// or dropped. One that ends before it starts covers nothing and is left out.
    OSStatus add(std::span<const SpecialPage* const> newPages) override;
};

} // namespace tarvo
