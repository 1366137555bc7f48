#pragma once

#include "platform/cf/OrderedMap.h"

#include <compare>
#include <concepts>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace tarvo {

/// Every integer setting of a job: not specified, the printer decides.
inline constexpr std::int32_t UnsetValue = std::numeric_limits<std::int32_t>::min();

/// A sequence of bytes.
struct CFData {
    std::string bytes;
    bool operator==(const CFData&) const = default;
};

/// A moment in UTC with a resolution of one second.
struct CFDate {
    std::int64_t secondsSinceEpoch = 0; // 1970-01-01T00:00:00Z
    auto operator<=>(const CFDate&) const = default;
};

class CFPropertyList;

using CFArray = std::vector<CFPropertyList>;

/// Strings to values in the order in which the keys came. Equal to another when both hold the same
/// keys with equal values, whatever the order.
class CFDictionary : public OrderedMap<CFPropertyList> {
public:
    using OrderedMap::OrderedMap;

    bool operator==(const CFDictionary& other) const;

    /// @return the value when the key is present and of that type (std::string, CFData, CFDate,
    /// CFArray or CFDictionary), borrowed until the next change; else null
    template <typename Type>
    const Type* get(std::string_view key) const;

    /// The 32-bit integer under the key by the rule of Int32Value.
    std::optional<std::int32_t> int32(std::string_view key) const;

    /// True only for the boolean true.
    bool isTrue(std::string_view key) const;
};

/// Any value of a property list. A copy is a value of its own.
class CFPropertyList {
public:
    CFPropertyList(std::same_as<bool> auto value) : value_(value) {}
    /// Any integer type whose every value fits 64 signed bits.
    template <std::integral Integer>
    requires(!std::same_as<Integer, bool> &&
             std::in_range<std::int64_t>(std::numeric_limits<Integer>::max()))
        CFPropertyList(Integer value)
        : value_(static_cast<std::int64_t>(value))
    {
    }
    CFPropertyList(std::floating_point auto value) : value_(static_cast<double>(value)) {}
    /// UTF-8 text.
    CFPropertyList(std::string value) : value_(std::move(value)) {}
    CFPropertyList(std::string_view value) : value_(std::string(value)) {}
    CFPropertyList(const char* value) : value_(std::string(value)) {}
    CFPropertyList(CFData value) : value_(std::move(value)) {}
    CFPropertyList(CFDate value) : value_(value) {}
    CFPropertyList(CFArray value) : value_(std::move(value)) {}
    CFPropertyList(CFDictionary value) : value_(std::move(value)) {}

    // Made once, in the source: nearly everything includes this, and they are long.
    CFPropertyList(const CFPropertyList& other);
    CFPropertyList(CFPropertyList&& other) noexcept;
    CFPropertyList& operator=(const CFPropertyList& other);
    CFPropertyList& operator=(CFPropertyList&& other) noexcept;
    ~CFPropertyList();

    /// @return the value when it is of that type (bool, std::int64_t, double, std::string, CFData,
    /// CFDate, CFArray or CFDictionary), borrowed; else null
    template <typename Type>
    const Type* get() const
    {
        return std::get_if<Type>(&value_);
    }
    template <typename Type>
    Type* get()
    {
        return std::get_if<Type>(&value_);
    }

    /// "boolean", "integer", "real", "string", "data", "date", "array" or "dictionary".
    const char* kindName() const;

    /// Calls the visitor with the value in its own type.
    template <typename Visitor>
    decltype(auto) visit(Visitor&& visitor) const
    {
        return std::visit(std::forward<Visitor>(visitor), value_);
    }

    /// Numbers are equal by value, so 1 equals 1.0; a boolean never equals a number.
    bool operator==(const CFPropertyList& other) const;

private:
    using Value = std::variant<bool, std::int64_t, double, std::string, CFData, CFDate, CFArray,
                               CFDictionary>;
    Value value_;
};

/// The value as a 32-bit integer: an integer in range, or a real that is whole and in range.
/// @return nullopt for any other value, and for null; a boolean is no number
std::optional<std::int32_t> Int32Value(const CFPropertyList* value);

/// Whether the value is a number other than zero, whatever its range; null is not.
bool IsNonZeroNumber(const CFPropertyList* value);

extern template class OrderedMap<CFPropertyList>;

template <typename Type>
const Type* CFDictionary::get(std::string_view key) const
{
    const CFPropertyList* value = find(key);
    return value == nullptr ? nullptr : value->get<Type>();
}

} // namespace tarvo
