#pragma once

#include "platform/printing/PMStatus.h"

namespace tarvo {

// Why a list of special pages is refused.
inline constexpr OSStatus StatusPageNumberLimit = 1000; // a number, or a count, is too large
inline constexpr OSStatus StatusInvalidPageRanges = 1001;
inline constexpr OSStatus StatusInvalidRangeOrder = 1002;
inline constexpr OSStatus StatusInvalidPageNumbers = 1003; // page 0 where pages count from 1
inline constexpr OSStatus StatusPageRangeConflict = 1234;

/// The alert that tells the user of a status: two keys of the "Localizable" table.
struct SpecialPagesAlert {
    OSStatus status; // 0 ends the table
    const char* titleKey;
    const char* messageKey;
};

inline constexpr SpecialPagesAlert SpecialPagesAlertMap[] = {
    {StatusPageNumberLimit,    "Page Number Limit Title",    "Page Number Limit"           },
    {StatusInvalidPageRanges,  "Invalid Pages Title",        "Invalid Page Ranges"         },
    {StatusInvalidRangeOrder,  "Invalid Ranges Title",       "Invalid Range Order"         },
    {StatusInvalidPageNumbers, "Invalid Page Numbers Title", "Invalid Page Numbers Message"},
    {StatusPageRangeConflict,  "PageRangeConflictTitle",     "PageRangeConflictMessage"    },
    {StatusOk,                 nullptr,                      nullptr                       },
};

/// @return null for a status that raises no alert
const SpecialPagesAlert* AlertForSpecialPagesStatus(OSStatus status);

} // namespace tarvo
