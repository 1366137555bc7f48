#pragma once

#include <string>
#include <string_view>

namespace tarvo {

/// Whether two texts of a user's are the same but for upper and lower case, by Unicode's default
/// case folding: "Straße" equals "STRASSE". No locale is involved, and an accent of its own differs
/// from an accented letter.
bool EqualIgnoringCase(std::string_view left, std::string_view right);

/// What texts that are EqualIgnoringCase have in common and no others: "strasse" for "Straße".
std::string CaseFolded(std::string_view text);

} // namespace tarvo
