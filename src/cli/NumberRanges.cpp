#include "cli/NumberRanges.h"

#include <algorithm>

namespace tarvo {

void NumberRanges::add(std::int32_t first, std::int32_t last)
{
    ranges_.push_back({first, last});
    std::sort(ranges_.begin(), ranges_.end(),
              [](const Range& range, const Range& other) { return range.first < other.first; });
    std::vector<Range> merged;
    for (const Range& range : ranges_) {
        const bool touches = !merged.empty() && std::int64_t{range.first} - 1 <= merged.back().last;
        if (touches) {
            merged.back().last = std::max(merged.back().last, range.last);
        } else {
            merged.push_back(range);
        }
    }
    ranges_ = std::move(merged);
}

bool NumberRanges::contains(std::int32_t number) const
{
    return std::any_of(ranges_.begin(), ranges_.end(), [number](const Range& range) {
        return range.first <= number && number <= range.last;
    });
}

std::string NumberRanges::text() const
{
    std::string text;
    for (const auto& [first, last] : ranges_) {
        text += (text.empty() ? "" : ", ") + std::to_string(first);
        if (first != last) {
            text += (std::int64_t{first} + 1 == last ? ", " : " to ") + std::to_string(last);
        }
    }
    return text;
}

} // namespace tarvo
