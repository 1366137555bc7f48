#include "tpif/XmlEntities.h"

#include "tpif/TPIFMaps.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

TEST(XmlEntities, AreWrittenForTheFiveCharacters)
{
    EXPECT_EQ(XMLCreateStringByEscapingEntities("a&<\">b'"), "a&amp;&lt;&quot;&gt;b&apos;");
    EXPECT_EQ(XMLCreateStringByEscapingEntities("&amp;"), "&amp;amp;");
    EXPECT_EQ(XMLCreateStringByEscapingEntities("Größe\n\t"), "Größe\n\t");
    EXPECT_EQ(XMLCreateStringByEscapingEntities(""), "");
}

TEST(XmlEntities, AreReadInOnePass)
{
    EXPECT_EQ(XMLCreateStringByUnescapingEntities("a&amp;&lt;&quot;&gt;b&apos;"), "a&<\">b'");
    EXPECT_EQ(XMLCreateStringByUnescapingEntities("&amp;lt;"), "&lt;");
    EXPECT_EQ(XMLCreateStringByUnescapingEntities("AT&T &#65; &auml; &amp"),
              "AT&T &#65; &auml; &amp");
}

struct PrefixCase {
    const char* name;
    const char* text;
    std::size_t bytes;
    const char* prefix;
};

TEST(PrefixOfEscaped, SplitsNeitherCharactersNorEntities)
{
    const PrefixCase cases[] = {
        {"fits",                       "abc",         3, "abc"    },
        {"behind a character",         "abäc",       4, "abä"   },
        {"before four bytes",          "a\U0001F4C4", 4, "a"      },
        {"before an entity",           "ab&amp;",     3, "ab"     },
        {"one byte of an entity lost", "ab&amp;c",    6, "ab"     },
        {"behind an entity",           "ab&amp;c",    7, "ab&amp;"},
        {"no entity",                  "a&b c;",      4, "a&b "   },
        {"character reference",        "a&#8364;b",   5, "a"      },
        {"undeclared entity",          "a&foo;b",     4, "a&fo"   },
        {"second entity split",        "&lt;b&amp;",  8, "&lt;b"  },
        {"nothing left",               "&quot;",      5, ""       },
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(PrefixOfEscaped(row.text, row.bytes), row.prefix);
    }
}

TEST(TPIFConvertKeyword, GoesBothWaysAndIsExact)
{
    EXPECT_EQ(TPIFConvertKeyword(TPIFJobTypeMap, 2), "Hold");
    EXPECT_EQ(TPIFConvertKeyword(TPIFJobTypeMap, 1), std::nullopt);
    EXPECT_EQ(TPIFConvertKeyword(TPIFRotationMap, 0), "PrinterDefault");
    EXPECT_EQ(TPIFConvertKeyword(TPIFHalftoneScreenMap, UnsetValue), "PrinterDefault");
    EXPECT_EQ(TPIFConvertKeyword(TPIFHalftoneScreenMap, "54lpi"), UnsetValue);
    EXPECT_EQ(TPIFConvertKeyword(TPIFHalftoneScreenMap, "107lpiDark"), 27);
    EXPECT_EQ(TPIFConvertKeyword(TPIFHalftoneScreenMap, "107lpidark"), std::nullopt);
    EXPECT_EQ(TPIFConvertKeyword(TPIFMediaWeightMetricMap, ""), std::nullopt);
}

} // namespace
} // namespace tarvo
