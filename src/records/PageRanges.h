#pragma once

#include "platform/printing/PMStatus.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace tarvo {

inline constexpr std::int32_t LargestPageNumber = 9'999'999;

/// Pages that follow one another.
struct PageRange {
    std::int32_t firstPage = 0;
    std::int32_t count = 0;
    bool operator==(const PageRange&) const = default;
};

/// Reads pages as people type them: "1, 3-5, -7, 9-" is page 1, pages 3 to 5, 1 to 7 and 9 to
/// LargestPageNumber. An item ends at a comma, or where a number follows a complete number; an
/// empty one is passed over, and so is every character that is no ASCII digit, comma or hyphen.
/// @param text      UTF-8
/// @param asRanges  false gives every page a range of its own, so "3-" gives 9,999,997 of them: who
/// has a limit reads ranges and asks CountPages first
/// @param ranges    replaced; in the order of the text, overlaps and all; empty on failure
/// @return StatusBadArgument for a null view or pointer, StatusPageNumberLimit,
/// StatusInvalidPageRanges (no pages at all, a hyphen too many), StatusInvalidRangeOrder (the range
/// goes to standard error); the first fault of the text counts
[[nodiscard]] OSStatus CreatePageRangesBySeparatingString(std::string_view text, bool asRanges,
                                                          std::vector<PageRange>* ranges);

/// The number of pages in all ranges, those in several counted as often.
std::int64_t CountPages(std::span<const PageRange> ranges);

} // namespace tarvo
