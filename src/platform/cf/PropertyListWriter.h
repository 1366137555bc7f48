#pragma once

#include "platform/cf/CFPropertyList.h"
#include "platform/xml/XmlLimits.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tarvo {

/// Writes a value as an XML property list that ReadPropertyList reads back as an equal value; the
/// same value gives the same bytes, dictionaries in their own order.
/// @return the document; nullopt with `error` filled (no line) when it could not be read back: a
/// text that is no UTF-8 or holds characters that XML lacks, a date outside the years 1 to 9999, or
/// a value beyond the reader's limits
[[nodiscard]] std::optional<std::string> WritePropertyList(const CFPropertyList& root,
                                                           ParseError& error);

/// Takes the next piece of a text; false when it cannot.
using PropertyListPut = std::function<bool(std::string_view piece)>;

/// Writes the same in pieces, so that the whole text is never in memory. Some may have been put
/// before something turns out to be wrong.
/// @return false with `error` filled, or left empty when a piece could not be put
[[nodiscard]] bool WritePropertyList(const CFPropertyList& root, const PropertyListPut& put,
                                     ParseError& error);

} // namespace tarvo
