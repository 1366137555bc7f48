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
    const char* end = text.data();
    g_utf8_validate_len(text.data(), text.size(), &end);
    return text.substr(0, static_cast<std::size_t>(end - text.data()));
}

} // namespace tarvo
