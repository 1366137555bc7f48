#include "tpif/XmlEntities.h"

#include "platform/text/Utf8.h"

#include <algorithm>
#include <array>

namespace tarvo {
namespace {

struct Entity {
    char character;
    std::string_view text;
};

constexpr std::array<Entity, 5> Entities = {
    {
     {'&', "&amp;"},
     {'<', "&lt;"},
     {'>', "&gt;"},
     {'\'', "&apos;"},
     {'"', "&quot;"},
     }
};

constexpr std::array<bool, 256> MakeEscapedBytes()
{
    std::array<bool, 256> escaped = {};
    for (const Entity& entity : Entities) {
        escaped[static_cast<unsigned char>(entity.character)] = true;
    }
    return escaped;
}

constexpr auto EscapedBytes = MakeEscapedBytes();

std::string_view EntityOf(char character)
{
    return std::find_if(Entities.begin(), Entities.end(),
                        [character](const Entity& entity) { return entity.character == character; })
        ->text;
}

bool IsEntityLetter(char letter)
{
    return (letter >= '0' && letter <= '9') || (letter >= 'A' && letter <= 'Z') ||
           (letter >= 'a' && letter <= 'z') || letter == '#';
}

} // namespace

std::string XMLCreateStringByEscapingEntities(std::string_view text)
{
    std::string escaped;
    escaped.reserve(text.size() + text.size() / 16);
    std::size_t plain = 0; // the beginning of what waits to be copied
    for (std::size_t position = 0; position < text.size(); ++position) {
        if (EscapedBytes[static_cast<unsigned char>(text[position])]) {
            escaped.append(text, plain, position - plain);
            escaped += EntityOf(text[position]);
            plain = position + 1;
        }
    }
    return escaped.append(text, plain);
}

std::string XMLCreateStringByUnescapingEntities(std::string_view text)
{
    std::string unescaped;
    unescaped.reserve(text.size());
    while (!text.empty()) {
        const std::size_t ampersand = std::min(text.find('&'), text.size());
        unescaped.append(text, 0, ampersand);
        text.remove_prefix(ampersand);
        const auto entity =
            std::find_if(Entities.begin(), Entities.end(), [text](const Entity& candidate) {
                return text.starts_with(candidate.text);
            });
        if (entity != Entities.end()) {
            unescaped += entity->character;
            text.remove_prefix(entity->text.size());
        } else if (!text.empty()) {
            unescaped += text.front();
            text.remove_prefix(1);
        }
    }
    return unescaped;
}

std::string_view PrefixOfEscaped(std::string_view escaped, std::size_t maximumBytes)
{
    const std::string_view prefix = Utf8Prefix(escaped, maximumBytes);
    const std::size_t ampersand = prefix.rfind('&');
    if (prefix.size() == escaped.size() || ampersand == std::string_view::npos) {
        return prefix;
    }
    std::size_t end = ampersand + 1;
    while (end < escaped.size() && IsEntityLetter(escaped[end])) {
        ++end;
    }
    const bool isEntity = end > ampersand + 1 && end < escaped.size() && escaped[end] == ';';
    return isEntity && end >= prefix.size() ? prefix.substr(0, ampersand) : prefix;
}

} // namespace tarvo
