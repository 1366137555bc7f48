#include "settings/PageRangeInput.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

struct InputCase {
    const char* name;
    std::u16string_view characters;
    bool valid;
};

constexpr InputCase InputCases[] = {
    {"nothing",                        u"",                    true },
    {"nor is the last one",            u"1;",                  true },
    {"ranges",                         u"1, 3-5,\t9-\n",       true },
    {"semicolon",                      u"1;2",                 false},
    {"letter in the first place",      u"a1",                  false},
    {"other digits",                   u"\u0663\u096A,",       true },
    {"fraction, superscript",          u"\u00BD\u00B2,",       false},
    {"no-break space, line separator", u"1\u00A0\u2028,",      true },
    {"control characters",             u"\u0001\u007F\u0085,", true },
    {"invisible format character",     u"\u200B,",             false},
    {"dash that is no hyphen",         u"1\u20132",            false},
    {"half of a character",            u"\xD835,",             false},
};

TEST(PageRangeInput, TakesDigitsSpacesCommasAndHyphens)
{
    for (const auto& row : InputCases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(PageRangeValidateInput(row.characters), row.valid);
    }
}

} // namespace
} // namespace tarvo
