#pragma once

#include <cstddef>
#include <string_view>

namespace tarvo {

/// The longest beginning of at most `maximumBytes` bytes that splits no character.
std::string_view Utf8Prefix(std::string_view text, std::size_t maximumBytes);

/// The number of characters (Unicode scalar values) of a valid text.
std::size_t Utf8Length(std::string_view text);

/// Whether the bytes are UTF-8 by the letter: no surrogates, no overlong forms, up to U+10FFFF.
bool IsUtf8(std::string_view text);

} // namespace tarvo
