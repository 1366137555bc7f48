#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <unordered_map>

namespace tarvo {

class Stock;

/// Where a stock can first be among many, told without comparing it with all of them.
class StockIndex {
public:
    void clear() { positions_.clear(); }
    void reserve(std::size_t count) { positions_.reserve(count); }
    /// @param position  above all that were added before
    void add(const Stock& stock, std::size_t position);
    /// @return the first position that an equal stock can have; nullopt when there is none
    std::optional<std::size_t> firstPosition(const Stock& stock) const;

private:
    std::unordered_map<std::uint64_t, std::size_t> positions_; // by hash, the first of each
};

} // namespace tarvo
