#include "records/PageRanges.h"

#include "records/SpecialPagesStatus.h"

#include <cstdio>
#include <numeric>
#include <optional>
#include <utility>

namespace tarvo {
namespace {

bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

// Gathers items from the signs of the text; each step says what is wrong with it.
class PageListParser {
public:
    OSStatus parse(std::string_view text)
    {
        OSStatus status = StatusOk;
        while (!text.empty() && status == StatusOk) {
            status = takeSign(text);
        }
        if (status == StatusOk) {
            status = endItem();
        }
        return status == StatusOk && ranges_.empty() ? StatusInvalidPageRanges : status;
    }

    std::vector<PageRange> takeRanges() { return std::exchange(ranges_, {}); }

private:
    OSStatus takeSign(std::string_view& text)
    {
        const char sign = text.front();
        if (IsDigit(sign)) {
            return takeNumber(text);
        }
        text.remove_prefix(1);
        if (sign == ',') {
            return endItem();
        }
        return sign == '-' ? takeHyphen() : StatusOk;
    }

    OSStatus takeNumber(std::string_view& text)
    {
        const OSStatus status = isComplete() ? endItem() : StatusOk;
        std::int32_t number = 0;
        for (; status == StatusOk && !text.empty() && IsDigit(text.front());
             text.remove_prefix(1)) {
            number = number * 10 + (text.front() - '0');
            if (number > LargestPageNumber) {
                return StatusPageNumberLimit;
            }
        }
        (hasHyphen_ ? last_ : first_) = number;
        return status;
    }

    OSStatus takeHyphen()
    {
        return std::exchange(hasHyphen_, true) ? StatusInvalidPageRanges : StatusOk;
    }

    // Whether one more number belongs to the next item.
    bool isComplete() const { return hasHyphen_ ? last_.has_value() : first_.has_value(); }

    OSStatus endItem()
    {
        const auto first = std::exchange(first_, std::nullopt);
        const auto last = std::exchange(last_, std::nullopt);
        const bool isRange = std::exchange(hasHyphen_, false);
        if (!first && !last) {
            return isRange ? StatusInvalidPageRanges : StatusOk;
        }
        return isRange ? addRange(first.value_or(1), last.value_or(LargestPageNumber))
                       : addRange(*first, *first);
    }

    OSStatus addRange(std::int32_t first, std::int32_t last)
    {
        if (first > last) {
            std::fprintf(stderr, "%d-%d\n", first, last);
            return StatusInvalidRangeOrder;
        }
        ranges_.push_back({first, last - first + 1});
        return StatusOk;
    }

    std::vector<PageRange> ranges_;
    std::optional<std::int32_t> first_; // of the item that is being read
    std::optional<std::int32_t> last_;
    bool hasHyphen_ = false;
};

// All in one piece of memory of exactly their size: there may be millions.
std::vector<PageRange> SinglePages(const std::vector<PageRange>& ranges)
{
    std::vector<PageRange> pages;
    pages.reserve(static_cast<std::size_t>(CountPages(ranges)));
    for (const PageRange& range : ranges) {
        for (std::int32_t offset = 0; offset < range.count; ++offset) {
            pages.push_back({range.firstPage + offset, 1});
        }
    }
    return pages;
}

} // namespace

OSStatus CreatePageRangesBySeparatingString(std::string_view text, bool asRanges,
                                            std::vector<PageRange>* ranges)
{
    if (ranges == nullptr) {
        return StatusBadArgument;
    }
    ranges->clear();
    if (text.data() == nullptr) {
        return StatusBadArgument;
    }
    PageListParser parser;
    const OSStatus status = parser.parse(text);
    if (status == StatusOk) {
        *ranges = asRanges ? parser.takeRanges() : SinglePages(parser.takeRanges());
    }
    return status;
}

std::int64_t CountPages(std::span<const PageRange> ranges)
{
    return std::accumulate(
        ranges.begin(), ranges.end(), std::int64_t{0},
        [](std::int64_t sum, const PageRange& range) { return sum + range.count; });
}

} // namespace tarvo
