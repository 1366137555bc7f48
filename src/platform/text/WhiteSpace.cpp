#include "platform/text/WhiteSpace.h"

namespace tarvo {

std::string_view Trimmed(std::string_view text)
{
    constexpr std::string_view WhiteSpace = " \t\n\r";
    const std::size_t first = text.find_first_not_of(WhiteSpace);
    return first == std::string_view::npos
               ? ""
               : text.substr(first, text.find_last_not_of(WhiteSpace) - first + 1);
}

} // namespace tarvo
