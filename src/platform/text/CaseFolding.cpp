#include "platform/text/CaseFolding.h"

#include <unicode/stringpiece.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <limits>

namespace tarvo {
namespace {

icu::UnicodeString FromUtf8(std::string_view text)
{
    // Texts of tickets are far shorter; what is beyond would not fit ICU's lengths.
    const std::size_t length = std::min<std::size_t>(text.size(), std::numeric_limits<int>::max());
    return icu::UnicodeString::fromUTF8(
        icu::StringPiece(text.data(), static_cast<std::int32_t>(length)));
}

bool IsAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(),
                       [](char letter) { return static_cast<unsigned char>(letter) < 0x80; });
}

} // namespace

bool EqualIgnoringCase(std::string_view left, std::string_view right)
{
    // Most texts that are compared are equal to the letter, or both empty.
    if (left == right) {
        return true;
    }
    if (left.empty() || right.empty()) {
        return false;
    }
    return FromUtf8(left).caseCompare(FromUtf8(right), U_FOLD_CASE_DEFAULT) == 0;
}

std::string CaseFolded(std::string_view text)
{
    std::string folded;
    if (!IsAscii(text)) {
        return FromUtf8(text).foldCase(U_FOLD_CASE_DEFAULT).toUTF8String(folded);
    }
    folded = text; // most are, and need none of the library
    for (char& letter : folded) {
        letter = static_cast<char>(letter >= 'A' && letter <= 'Z' ? letter - 'A' + 'a' : letter);
    }
    return folded;
}

} // namespace tarvo
