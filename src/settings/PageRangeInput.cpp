#include "settings/PageRangeInput.h"

#include <unicode/uchar.h>

#include <algorithm>

namespace tarvo {
namespace {

bool BelongsToPageRange(char16_t character)
{
    return character == u',' || character == u'-' || u_isdigit(character) != 0 ||
           u_charType(character) == U_CONTROL_CHAR || u_isUWhiteSpace(character) != 0;
}

} // namespace

bool PageRangeValidateInput(std::u16string_view characters)
{
    characters.remove_suffix(characters.empty() ? 0 : 1);
    return std::all_of(characters.begin(), characters.end(), BelongsToPageRange);
}

} // namespace tarvo
