#include "platform/text/CaseFolding.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

struct FoldingCase {
    const char* name;
    const char* left;
    const char* right;
    bool equal;
};

constexpr FoldingCase FoldingCases[] = {
    {"nothing",                      "",             "",             true },
    {"nothing and something",        "",             "a",            false},
    {"a beginning",                  "paper",        "Papers",       false},
    {"ASCII",                        "Plain 2",      "pLAIN 2",      true },
    {"one letter to two",            "Straße",      "STRASSE",      true },
    {"accented, two bytes each",     "ÉCRU",        "écru",        true },
    {"Greek, with a final sigma",    "χάρτης", "ΧΆΡΤΗΣ", true },
    {"a sign that is a letter",      "300 \u212A",   "300 k",        true },
    {"bytes that are no text",       "\xff",         "\xFE",         true },
    {"no Turkish rules",             "I",            "ı",           false},
    {"an accent is no letter's own", "é",           "e\u0301",      false},
    {"width is no case",             "A",            "\uFF21",       false},
};

TEST(EqualIgnoringCase, FoldsByUnicodeWithoutALocale)
{
    for (const auto& row : FoldingCases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(EqualIgnoringCase(row.left, row.right), row.equal);
        EXPECT_EQ(EqualIgnoringCase(row.right, row.left), row.equal);
        EXPECT_EQ(CaseFolded(row.left) == CaseFolded(row.right), row.equal);
    }
}

} // namespace
} // namespace tarvo
