#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvo {

/// Hash of a key under a seed drawn once per process, so that nobody can prepare keys that collide.
std::uint64_t KeyHash(std::string_view key);

/// Strings to values, in the order in which the keys came; finds a key among many without walking
/// them. Looking up changes nothing, so threads may share a constant map.
template <typename Value>
class OrderedMap {
public:
    struct Entry {
        std::string key;
        Value value;
    };
    using const_iterator = typename std::vector<Entry>::const_iterator;

    OrderedMap() = default;
    /// The first of several entries with one key stays.
    explicit OrderedMap(std::vector<Entry> entries) { assign(std::move(entries)); }

    std::size_t size() const { return entries_.size(); }
    bool empty() const { return entries_.empty(); }
    const_iterator begin() const { return entries_.begin(); }
    const_iterator end() const { return entries_.end(); }
    void reserve(std::size_t count) { entries_.reserve(count); }

    /// @return the value, borrowed until the next change; null when the key is absent
    const Value* find(std::string_view key) const
    {
        const std::size_t position = positionOf(key);
        return position == Absent ? nullptr : &entries_[position].value;
    }
    Value* find(std::string_view key)
    {
        const std::size_t position = positionOf(key);
        return position == Absent ? nullptr : &entries_[position].value;
    }
    bool contains(std::string_view key) const { return positionOf(key) != Absent; }

    /// Replaces the value in its place, or appends a new entry.
    void set(std::string_view key, Value value)
    {
        if (Value* present = find(key)) {
            *present = std::move(value);
            return;
        }
        append(key, std::move(value));
    }

    /// Appends an entry unless the key is present.
    /// @return false, with nothing changed, when the key is present
    bool insert(std::string_view key, Value value)
    {
        if (contains(key)) {
            return false;
        }
        append(key, std::move(value));
        return true;
    }

    /// @return false when the key was absent; takes time in proportion to the size
    bool remove(std::string_view key)
    {
        const std::size_t position = positionOf(key);
        if (position == Absent) {
            return false;
        }
        entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(position));
        rebuildSlots();
        return true;
    }

    /// Replaces everything. Of several entries with one key the first stays.
    /// @return a key that came twice; nullopt when none did
    std::optional<std::string> assign(std::vector<Entry> entries)
    {
        entries_ = std::move(entries);
        std::optional<std::string> twice = rebuildSlots();
        if (twice) {
            OrderedMap firsts;
            for (Entry& entry : entries_) {
                firsts.insert(entry.key, std::move(entry.value));
            }
            *this = std::move(firsts);
        }
        return twice;
    }

    /// Removes every entry whose key the predicate accepts, in one pass.
    template <typename Predicate>
    void removeKeys(Predicate accepts)
    {
        const std::size_t removed =
            std::erase_if(entries_, [&accepts](const Entry& entry) { return accepts(entry.key); });
        if (removed != 0) {
            rebuildSlots();
        }
    }

    /// The entries in their order; the map is empty afterwards.
    std::vector<Entry> takeEntries() &&
    {
        table_ = SlotTable();
        return std::exchange(entries_, {});
    }

private:
    static constexpr std::size_t Absent = static_cast<std::size_t>(-1);
    static constexpr std::uint32_t EmptySlot = static_cast<std::uint32_t>(-1);
    static constexpr std::size_t LargestWalked = 12; // measured: up to here walking is faster

    /// Positions of entries by hash, open addressing, a power of two of them, at most half used.
    /// Null while the map is small. A pointer, so that a small map costs little.
    class SlotTable {
    public:
        SlotTable() = default;
        SlotTable(const SlotTable& other)
            : slots_(other.slots_ ? std::make_unique<Slots>(*other.slots_) : nullptr)
        {
        }
        SlotTable(SlotTable&&) noexcept = default;
        SlotTable& operator=(const SlotTable& other)
        {
            slots_ = other.slots_ ? std::make_unique<Slots>(*other.slots_) : nullptr;
            return *this;
        }
        SlotTable& operator=(SlotTable&&) noexcept = default;
        ~SlotTable() = default;

        using Slots = std::vector<std::uint32_t>;
        std::unique_ptr<Slots> slots_;
    };

    std::size_t positionOf(std::string_view key) const
    {
        if (!table_.slots_) {
            for (std::size_t position = 0; position < entries_.size(); ++position) {
                if (entries_[position].key == key) {
                    return position;
                }
            }
            return Absent;
        }
        const auto& slots = *table_.slots_;
        const std::size_t mask = slots.size() - 1;
        for (std::size_t slot = KeyHash(key) & mask;; slot = (slot + 1) & mask) {
            const std::uint32_t position = slots[slot];
            if (position == EmptySlot) {
                return Absent;
            }
            if (entries_[position].key == key) {
                return position;
            }
        }
    }

    void append(std::string_view key, Value value)
    {
        entries_.push_back(Entry{std::string(key), std::move(value)});
        if (!table_.slots_ || entries_.size() * 2 > table_.slots_->size()) {
            rebuildSlots();
        } else {
            enterSlot(entries_.size() - 1);
        }
    }

    // @return false, with no slot taken, when the key is there already
    bool enterSlot(std::size_t position)
    {
        auto& slots = *table_.slots_;
        const std::string& key = entries_[position].key;
        const std::size_t mask = slots.size() - 1;
        std::size_t slot = KeyHash(key) & mask;
        while (slots[slot] != EmptySlot) {
            if (entries_[slots[slot]].key == key) {
                return false;
            }
            slot = (slot + 1) & mask;
        }
        slots[slot] = static_cast<std::uint32_t>(position);
        return true;
    }

    // @return a key that is there twice
    std::optional<std::string> rebuildSlots()
    {
        table_.slots_.reset();
        if (entries_.size() > LargestWalked) {
            std::size_t size = 64;
            while (size < entries_.size() * 4) {
                size *= 2;
            }
            table_.slots_ = std::make_unique<typename SlotTable::Slots>(size, EmptySlot);
        }
        std::optional<std::string> twice;
        for (std::size_t position = 0; position < entries_.size(); ++position) {
            const std::string& key = entries_[position].key;
            if (table_.slots_ ? !enterSlot(position) : positionOf(key) != position) {
                twice = key;
            }
        }
        return twice;
    }

    std::vector<Entry> entries_;
    SlotTable table_;
};

} // namespace tarvo
