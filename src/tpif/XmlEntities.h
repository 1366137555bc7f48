#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarvo {

/// Writes each of & < > ' " as its entity, in one pass, and all else unchanged.
std::string XMLCreateStringByEscapingEntities(std::string_view text);

/// The inverse: the same five entities become characters, in one pass; anything else, other
/// entities included, stays as it is. Not for text that an XML parser has already unescaped.
std::string XMLCreateStringByUnescapingEntities(std::string_view text);

/// The longest beginning of at most `maximumBytes` bytes that splits neither a character nor an
/// entity: half an entity would make the document unreadable.
std::string_view PrefixOfEscaped(std::string_view escaped, std::size_t maximumBytes);

} // namespace tarvo
