#include "platform/cf/PropertyListWriter.h"

#include "platform/cf/PropertyListReader.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tarvo {
namespace {

std::string Written(const CFPropertyList& value)
{
    ParseError error;
    auto xml = WritePropertyList(value, error);
    return xml ? std::move(*xml) : "not written: " + error.reason;
}

TEST(PropertyListWriter, WritesEveryKindInItsOwnLines)
{
    CFDictionary root;
    root.set("z", CFArray{true, false, 0.1, 1e300, -0.0, CFArray(), CFDictionary()});
    root.set("<&>\"'", std::int64_t{UnsetValue});
    root.set("text", "a\r\n\t<&>\"'\xC3\xA9\xF0\x9F\x98\x80");
    root.set("date", CFDate{-1});
    root.set("data", CFData{std::string(58, '\xFF')});
    root.set("", CFData());
    EXPECT_EQ(Written(root),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
              "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
              "<plist version=\"1.0\">\n<dict>\n"
              "\t<key>z</key>\n"
              "\t<array>\n\t\t<true/>\n\t\t<false/>\n"
              "\t\t<real>0.1</real>\n\t\t<real>1e+300</real>\n\t\t<real>-0</real>\n"
              "\t\t<array/>\n\t\t<dict/>\n\t</array>\n"
              "\t<key>&lt;&amp;&gt;\"'</key>\n\t<integer>-2147483648</integer>\n"
              "\t<key>text</key>\n"
              "\t<string>a&#13;\n\t&lt;&amp;&gt;\"'\xC3\xA9\xF0\x9F\x98\x80</string>\n"
              "\t<key>date</key>\n\t<date>1969-12-31T23:59:59Z</date>\n"
              "\t<key>data</key>\n\t<data>\n"
              "\t////////////////////////////////////////////////////////////////////////////\n"
              "\t/w==\n\t</data>\n"
              "\t<key></key>\n\t<data>\n\t</data>\n"
              "</dict>\n</plist>\n");
}

TEST(PropertyListWriter, RefusesWhatTheReaderWould)
{
    CFDictionary badKey;
    badKey.set("a\x01", 1);
    CFPropertyList deepest = CFArray(); // the innermost, empty, counts as well
    for (std::size_t depth = 1; depth < PropertyListMaximumDepth; ++depth) {
        deepest = CFArray{std::move(deepest)};
    }
    const CFArray many(PropertyListMaximumValues, true);
    const std::string ampersands(PropertyListLimits.bytes / 5, '&'); // each written as five
    const std::pair<CFPropertyList, const char*> cases[] = {
        {badKey,               "a text holds a control character"             },
        {"\x1B",               "a text holds a control character"             },
        {"\xE9t\xE9",          "a text is not UTF-8"                          },
        {"\xEF\xBF\xBE",       "a text holds U+FFFE or U+FFFF"                },
        {"a\xEF\xBF\xBF",      "a text holds U+FFFE or U+FFFF"                },
        {CFDate{-62135596801}, "a date outside the years 1 to 9999"           },
        {CFDate{253402300800}, "a date outside the years 1 to 9999"           },
        {CFArray{deepest},     "values are nested deeper than 200"            },
        {many,                 "more than 4000000 values"                     },
        {ampersands,           "the property list would be larger than 64 MiB"},
    };
    for (const auto& [value, reason] : cases) {
        EXPECT_EQ(Written(value), std::string("not written: ") + reason);
    }
    ParseError error;
    EXPECT_EQ(ReadPropertyList(Written(deepest), error), deepest) << error.reason;
}

TEST(PropertyListWriter, PutsTheSameInPieces)
{
    constexpr std::size_t Many = 20'000;
    const CFPropertyList root = CFArray(Many, CFPropertyList("of some length"));
    std::size_t longest = 0;
    std::string all;
    ParseError error;
    const auto join = [&](std::string_view piece) {
        longest = std::max(longest, piece.size());
        all += piece;
        return true;
    };
    EXPECT_TRUE(WritePropertyList(root, join, error));
    EXPECT_EQ(all, Written(root));
    EXPECT_LT(longest, 100'000U);

    int puts = 0;
    const auto full = [&puts](std::string_view) { return ++puts < 2; };
    EXPECT_FALSE(WritePropertyList(root, full, error));
    EXPECT_EQ(puts, 2);
    EXPECT_EQ(error.reason, "");

    CFArray wrong(Many, CFPropertyList("of some length"));
    wrong.emplace_back("\x01");
    EXPECT_FALSE(WritePropertyList(wrong, join, error));
    EXPECT_EQ(error.reason, "a text holds a control character");
}

} // namespace
} // namespace tarvo
