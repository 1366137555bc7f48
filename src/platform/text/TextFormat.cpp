#include "platform/text/TextFormat.h"

namespace tarvo {

std::string FilledFormat(std::string_view format, std::string_view value)
{
    constexpr std::string_view Placeholder = "%@";
    std::string text(format);
    if (const std::size_t position = text.find(Placeholder); position != std::string::npos) {
        text.replace(position, Placeholder.size(), value);
    }
    return text;
}

} // namespace tarvo
