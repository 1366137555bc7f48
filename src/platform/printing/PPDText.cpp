#include "platform/printing/PPDText.h"

#include "platform/text/Utf8.h"

#include <glib.h>

#include <algorithm>
#include <cstddef>
#include <memory>

namespace tarvo {
namespace {

constexpr std::size_t LongestText = 511; // bytes

// -1 when the character is no hexadecimal digit.
int DigitValue(char letter)
{
    if (letter >= '0' && letter <= '9') {
        return letter - '0';
    }
    if (letter >= 'a' && letter <= 'f') {
        return letter - 'a' + 10;
    }
    return letter >= 'A' && letter <= 'F' ? letter - 'A' + 10 : -1;
}

bool IsDigitAt(std::string_view text, std::size_t position)
{
    return position < text.size() && DigitValue(text[position]) >= 0;
}

// "a<b" is no run although b is a digit: it would give no byte, and no ">" says that one was meant.
bool BeginsRun(std::string_view text)
{
    return text[0] == '<' && IsDigitAt(text, 1) &&
           (IsDigitAt(text, 2) || text.find('>') != std::string_view::npos);
}

// Takes a run off the text, its end and what is dropped with it. A lone last digit is no byte.
void DecodeRun(std::string_view& text, std::string& bytes)
{
    text.remove_prefix(1);
    while (IsDigitAt(text, 0) && IsDigitAt(text, 1)) {
        bytes += static_cast<char>(DigitValue(text[0]) << 4 | DigitValue(text[1]));
        text.remove_prefix(2);
    }
    text.remove_prefix(std::min(text.find('>'), text.size()));
    text.remove_prefix(std::min(text.find_first_not_of('>'), text.size()));
}

} // namespace

std::string ppd_decode(std::string_view text)
{
    text = text.substr(0, LongestText);
    std::string bytes;
    while (!text.empty()) {
        if (BeginsRun(text)) {
            DecodeRun(text, bytes);
        } else {
            bytes += text.front();
            text.remove_prefix(1);
        }
    }
    return bytes;
}

std::string Utf8OfPPDText(std::string bytes)
{
    bytes.resize(std::min(bytes.find('\0'), bytes.size()));
    if (IsUtf8(bytes)) {
        return bytes;
    }
    const std::unique_ptr<char, decltype(&g_free)> converted(
        g_convert(bytes.data(), static_cast<gssize>(bytes.size()), "UTF-8", "MACINTOSH", nullptr,
                  nullptr, nullptr),
        g_free);
    return converted ? converted.get() : "";
}

} // namespace tarvo
