#include "platform/text/Utf8.h"

#include <glib.h>

#include <algorithm>

namespace tarvo {
namespace {

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

bool IsUtf8(std::string_view text)
{
    return g_utf8_validate_len(text.data(), text.size(), nullptr) != FALSE;
}

} // namespace tarvo
