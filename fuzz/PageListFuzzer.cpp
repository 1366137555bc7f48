// Any text as a page list: it is refused with nothing, or gives ranges within the page numbers, and
// the same text page by page gives just their pages.
#include "records/PageRanges.h"
#include "records/SpecialPagesStatus.h"

#include <cstdint>
#include <cstdlib>

namespace {

void Expect(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

void ExpectSamePages(std::string_view text, const std::vector<tarvo::PageRange>& ranges)
{
    std::vector<tarvo::PageRange> pages;
    Expect(tarvo::CreatePageRangesBySeparatingString(text, false, &pages) == tarvo::StatusOk);
    auto page = pages.begin();
    for (const auto& range : ranges) {
        for (std::int32_t offset = 0; offset < range.count; ++offset, ++page) {
            Expect(page != pages.end());
            Expect(*page == tarvo::PageRange{range.firstPage + offset, 1});
        }
    }
    Expect(page == pages.end());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(bytes), size);
    std::vector<tarvo::PageRange> ranges;
    if (tarvo::CreatePageRangesBySeparatingString(text, true, &ranges) != tarvo::StatusOk) {
        Expect(ranges.empty());
        return 0;
    }
    Expect(!ranges.empty());
    for (const auto& range : ranges) {
        Expect(range.firstPage >= 0 && range.count > 0);
        Expect(range.firstPage + range.count - 1 <= tarvo::LargestPageNumber);
    }
    if (tarvo::CountPages(ranges) <= 100'000) { // memory is not what is tested
        ExpectSamePages(text, ranges);
    }
    return 0;
}
