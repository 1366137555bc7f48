#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tarvo {

/// The numbers that an entry of a ticket may hold.
class NumberRanges {
public:
    void add(std::int32_t number) { add(number, number); }
    void add(std::int32_t first, std::int32_t last);
    bool contains(std::int32_t number) const;
    std::int32_t highest() const { return ranges_.empty() ? 0 : ranges_.back().last; }
    /// For people: "0, 5 to 8".
    std::string text() const;

private:
    struct Range {
        std::int32_t first;
        std::int32_t last;
    };
    std::vector<Range> ranges_; // ascending, apart from one another
};

} // namespace tarvo
