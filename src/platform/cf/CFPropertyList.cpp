#include "platform/cf/CFPropertyList.h"

#include <cmath>

namespace tarvo {
namespace {

// Exact: a 64-bit integer may have no double of its own.
bool EqualNumbers(std::int64_t integer, double real)
{
    constexpr double TwoTo63 = 9223372036854775808.0;
    return real >= -TwoTo63 && real < TwoTo63 && std::trunc(real) == real &&
           static_cast<std::int64_t>(real) == integer;
}

} // namespace

template class OrderedMap<CFPropertyList>;

bool CFDictionary::operator==(const CFDictionary& other) const
{
    if (size() != other.size()) {
        return false;
    }
    return std::all_of(begin(), end(), [&other](const Entry& entry) {
        const CFPropertyList* value = other.find(entry.key);
        return value != nullptr && *value == entry.value;
    });
}

std::optional<std::int32_t> CFDictionary::int32(std::string_view key) const
{
    return Int32Value(find(key));
}

bool CFDictionary::isTrue(std::string_view key) const
{
    const bool* value = get<bool>(key);
    return value != nullptr && *value;
}

CFPropertyList::CFPropertyList(const CFPropertyList& other) = default;
CFPropertyList::CFPropertyList(CFPropertyList&& other) noexcept = default;
CFPropertyList& CFPropertyList::operator=(const CFPropertyList& other) = default;
CFPropertyList& CFPropertyList::operator=(CFPropertyList&& other) noexcept = default;
CFPropertyList::~CFPropertyList() = default;

const char* CFPropertyList::kindName() const
{
    static constexpr const char* Names[] = {"boolean", "integer", "real",  "string",
                                            "data",    "date",    "array", "dictionary"};
    return Names[value_.index()];
}

bool CFPropertyList::operator==(const CFPropertyList& other) const
{
    if (const auto* integer = get<std::int64_t>()) {
        if (const auto* real = other.get<double>()) {
            return EqualNumbers(*integer, *real);
        }
    }
    if (const auto* real = get<double>()) {
        if (const auto* integer = other.get<std::int64_t>()) {
            return EqualNumbers(*integer, *real);
        }
    }
    return value_ == other.value_;
}

std::optional<std::int32_t> Int32Value(const CFPropertyList* value)
{
    if (value == nullptr) {
        return std::nullopt;
    }
    if (const auto* integer = value->get<std::int64_t>()) {
        return std::in_range<std::int32_t>(*integer)
                   ? std::optional(static_cast<std::int32_t>(*integer))
                   : std::nullopt;
    }
    if (const auto* real = value->get<double>()) {
        constexpr double Lowest = std::numeric_limits<std::int32_t>::min();
        constexpr double Highest = std::numeric_limits<std::int32_t>::max();
        if (*real >= Lowest && *real <= Highest && std::trunc(*real) == *real) {
            return static_cast<std::int32_t>(*real);
        }
    }
    return std::nullopt;
}

bool IsNonZeroNumber(const CFPropertyList* value)
{
    if (value == nullptr) {
        return false;
    }
    const auto* integer = value->get<std::int64_t>();
    const auto* real = value->get<double>();
    return (integer != nullptr && *integer != 0) || (real != nullptr && *real != 0);
}

} // namespace tarvo
