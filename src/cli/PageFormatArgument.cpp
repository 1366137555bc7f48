#include "cli/PageFormatArgument.h"

#include <charconv>
#include <cmath>
#include <system_error>

namespace tarvo {
namespace {

// Takes a decimal and the comma behind it off the text.
std::optional<float> TakePoints(std::string_view& text)
{
    float points = 0;
    const char* end = text.data() + text.size();
    const auto [behind, error] =
        std::from_chars(text.data(), end, points, std::chars_format::fixed);
    if (error != std::errc() || behind == end || *behind != ',') {
        return std::nullopt;
    }
    if (!std::isfinite(points) || points <= 0) { // "inf" and "nan" are numbers to from_chars
        return std::nullopt;
    }
    text.remove_prefix(static_cast<std::size_t>(behind - text.data()) + 1);
    return points;
}

} // namespace

std::optional<PageFormat> PageFormatFromText(std::string_view text)
{
    const auto width = TakePoints(text);
    const auto length = width ? TakePoints(text) : std::nullopt;
    if (!length || text.size() != 1 || text[0] < '0' || text[0] > '3') {
        return std::nullopt;
    }
    return PageFormat{static_cast<PageOrientation>(text[0] - '0'), *width, *length};
}

} // namespace tarvo
