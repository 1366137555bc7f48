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

// The length of the entity or character reference that the text begins with; 0 when it begins with
// none that a parser knows without a declaration.
std::size_t LengthOfEntity(std::string_view text)
{
    if (text.starts_with("&#")) {
        const std::size_t end = text.find_first_not_of("0123456789abcdefABCDEFx", 2);
        return end != std::string_view::npos && text[end] == ';' ? end + 1 : 0;
    }
    for (const Entity& entity : Entities) {
        if (text.starts_with(entity.text)) {
            return entity.text.size();
        }
    }
    return 0;
}

} // namespace

std::string XMLCreateStringByEscapingEntities(std::string_view text)
{
    const auto count = std::count_if(text.begin(), text.end(), [](char letter) {
        return EscapedBytes[static_cast<unsigned char>(letter)];
    });
    if (count == 0) {
        return std::string(text);
    }
    constexpr std::size_t LongestEntity = 6;
    std::string escaped;
    escaped.reserve(text.size() + static_cast<std::size_t>(count) * (LongestEntity - 1));
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
    const bool isSplit = ampersand + LengthOfEntity(escaped.substr(ampersand)) > prefix.size();
    return isSplit ? prefix.substr(0, ampersand) : prefix;
}

} // namespace tarvo
