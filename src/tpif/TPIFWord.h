#pragma once

#include <cstdint>

namespace tarvo {

/// A word of the document and the number that stands for it. A null word ends a table.
struct TPIFWord {
    const char* word;
    std::int32_t value;
    const char* keyword = nullptr; // the feature database's name for it; null when it has none
    bool isName = false;           // the document gives it as a name, not as a keyword
};

/// @return the word of the first row with that value; null when there is none
inline const char* WordForValue(const TPIFWord* words, std::int32_t value)
{
    while (words->word != nullptr && words->value != value) {
        ++words;
    }
    return words->word;
}

} // namespace tarvo
