#pragma once

#include "platform/cf/CFPropertyList.h"
#include "platform/xml/XmlLimits.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace tarvo {

// Bounds of a property list, of reader and writer alike.
inline constexpr std::size_t PropertyListMaximumDepth = 200; // containers within one another
inline constexpr std::size_t PropertyListMaximumValues = 4'000'000;
inline constexpr XmlLimits PropertyListLimits = {
    .bytes = std::size_t{64} * 1024 * 1024,
    .depth = PropertyListMaximumDepth + 2, // "plist" around them, a scalar inside
    .attributes = 64,
};

/// Where a value stands in its file, for who wants to tell people: a value of a dictionary at its
/// key. It has as many places inside as the dictionary has entries, or the array members, in their
/// order.
struct PropertyListPlace {
    std::size_t line = 0;
    std::vector<PropertyListPlace> inside;
};

/// Reads an XML property list. Strict: nothing is guessed and nothing is dropped. Integers are
/// decimal and fit 64 signed bits; reals are decimal, or nan, inf, infinity with a sign; dates are
/// 2026-11-21T07:30:00Z in the years 1 to 9999; data is canonical base64 with any white space; a
/// key appears once in its dictionary.
/// @param xml    UTF-8
/// @param place  filled with that of the root value; null when nobody wants to know
/// @return the root value; nullopt with `error` filled when anything is wrong
[[nodiscard]] std::optional<CFPropertyList>
ReadPropertyList(std::string_view xml, ParseError& error, PropertyListPlace* place = nullptr);

/// The same for a file whose root must be a dictionary, as in every ticket and preference file.
[[nodiscard]] std::optional<CFDictionary>
ReadPropertyListDictionary(std::string_view xml, ParseError& error,
                           PropertyListPlace* place = nullptr);

} // namespace tarvo
