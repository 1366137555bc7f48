#pragma once

#include <cstddef>
#include <string_view>

namespace tarvo {

/// The longest beginning of at most `maximumBytes` bytes that splits no character.
std::string_view Utf8Prefix(std::string_view text, std::size_t maximumBytes);

/// The number of characters (Unicode scalar values) of a valid text.
std::size_t Utf8Length(std::string_view text);

/// The first `count` characters of a valid text; the whole text when it has no more.
std::string_view Utf8FirstCharacters(std::string_view text, std::size_t count);

/// Whether the bytes are UTF-8 by the letter: no surrogates, no overlong forms, up to U+10FFFF. NUL
/// is refused too: nothing that this system reads or writes can hold it.
bool IsUtf8(std::string_view text);

/// The longest beginning that IsUtf8 accepts; the whole text when there is nothing wrong with it.
std::string_view ValidUtf8Prefix(std::string_view text);

} // namespace tarvo
