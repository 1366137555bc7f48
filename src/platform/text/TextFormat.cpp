#include "platform/text/TextFormat.h"

namespace tarvo {

std::string FilledFormat(std::string_view format, std::string_view value)
{
    return FilledFormat(format, {value});
}

std::string FilledFormat(std::string_view format, std::initializer_list<std::string_view> values)
{
    constexpr std::string_view Placeholder = "%@";
    std::string text(format);
    std::size_t position = 0;
    for (const std::string_view value : values) {
        position = text.find(Placeholder, position);
        if (position == std::string::npos) {
            break;
        }
        text.replace(position, Placeholder.size(), value);
        position += value.size(); // which is taken as it is
    }
    return text;
}

} // namespace tarvo
