#include "platform/text/Utf8.h"

#include <glib.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace tarvo {
namespace {

// How many bytes at the start are ASCII without NUL, in steps of eight: most texts are no more.
std::size_t PlainPrefixLength(std::string_view text)
{
    constexpr std::uint64_t Ones = 0x0101010101010101;
    constexpr std::uint64_t Highs = 0x8080808080808080;
    std::size_t length = 0;
    for (std::uint64_t bytes = 0; text.size() - length >= sizeof bytes; length += sizeof bytes) {
        std::memcpy(&bytes, text.data() + length, sizeof bytes);
        if ((((bytes - Ones) | bytes) & Highs) != 0) { // a byte of 0 borrows
            break;
        }
    }
    return length;
}

bool ContinuesCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

} // namespace

std::string_view Utf8Prefix(std::string_view text, std::size_t maximumBytes)
{
    if (text.size() <= maximumBytes) {
        return text;
    }
    std::size_t length = maximumBytes;
    while (length > 0 && ContinuesCharacter(text[length])) {
        --length;
    }
    return text.substr(0, length);
}

std::size_t Utf8Length(std::string_view text)
{
    return text.size() -
           static_cast<std::size_t>(std::count_if(text.begin(), text.end(), ContinuesCharacter));
}

std::string_view Utf8FirstCharacters(std::string_view text, std::size_t count)
{
    for (std::size_t position = 0; position < text.size(); ++position) {
        if (!ContinuesCharacter(text[position]) && count-- == 0) {
            return text.substr(0, position);
        }
    }
    return text;
}

bool IsUtf8(std::string_view text)
{
    return ValidUtf8Prefix(text).size() == text.size();
}

std::string_view ValidUtf8Prefix(std::string_view text)
{
    const std::size_t plain = PlainPrefixLength(text);
    const char* end = text.data();
    g_utf8_validate_len(text.data() + plain, text.size() - plain, &end);
    return text.substr(0, static_cast<std::size_t>(end - text.data()));
}

} // namespace tarvo
