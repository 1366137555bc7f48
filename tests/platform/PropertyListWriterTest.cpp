#include "platform/cf/PropertyListWriter.h"

#include "platform/cf/PropertyListReader.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>

namespace tarvo {
namespace {

std::string Written(const CFPropertyList& value)
{
    ParseError error;
    auto xml = WritePropertyList(value, error);
    return xml ? std::move(*xml) : "not written: " + error.reason;
}

CFPropertyList Nested(std::size_t arrays)
{
    CFPropertyList value = CFArray();
    while (--arrays > 0) {
        value = CFArray{std::move(value)};
    }
    return value;
}

TEST(PropertyListWriter, WritesEveryKindInItsOwnLines)
{
    CFDictionary inner;
    inner.set("com.tarvo.print.Grain", std::int64_t{UnsetValue});
    inner.set("<&>\"'", CFArray{CFArray(), CFDictionary()});
    CFDictionary root;
    root.set("z", CFArray{true, false, 0.1, 1e300, -0.0});
    root.set("a", std::move(inner));
    root.set("text", "a\r\n\t<&>\"'\xC3\xA9\xF0\x9F\x98\x80");
    root.set("date", CFDate{-1});
    root.set("data", CFData{std::string(58, '\xFF')});
    root.set("", CFData());
    EXPECT_EQ(Written(root),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
              "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
              "<plist version=\"1.0\">\n"
              "<dict>\n"
              "\t<key>z</key>\n"
              "\t<array>\n"
              "\t\t<true/>\n"
              "\t\t<false/>\n"
              "\t\t<real>0.1</real>\n"
              "\t\t<real>1e+300</real>\n"
              "\t\t<real>-0</real>\n"
              "\t</array>\n"
              "\t<key>a</key>\n"
              "\t<dict>\n"
              "\t\t<key>com.tarvo.print.Grain</key>\n"
              "\t\t<integer>-2147483648</integer>\n"
              "\t\t<key>&lt;&amp;&gt;\"'</key>\n"
              "\t\t<array>\n"
              "\t\t\t<array/>\n"
              "\t\t\t<dict/>\n"
              "\t\t</array>\n"
              "\t</dict>\n"
              "\t<key>text</key>\n"
              "\t<string>a&#13;\n\t&lt;&amp;&gt;\"'\xC3\xA9\xF0\x9F\x98\x80</string>\n"
              "\t<key>date</key>\n"
              "\t<date>1969-12-31T23:59:59Z</date>\n"
              "\t<key>data</key>\n"
              "\t<data>\n"
              "\t////////////////////////////////////////////////////////////////////////////\n"
              "\t/w==\n"
              "\t</data>\n"
              "\t<key></key>\n"
              "\t<data>\n"
              "\t</data>\n"
              "</dict>\n"
              "</plist>\n");
}

TEST(PropertyListWriter, RefusesWhatTheReaderWould)
{
    using namespace std::string_literals;
    CFDictionary badKey;
    badKey.set("a\0b"s, 1);
    constexpr std::int64_t FirstSecond = -62135596800;
    constexpr std::int64_t LastSecond = 253402300799;
    const std::string ampersands(PropertyListLimits.bytes / 5, '&'); // each written as five
    struct RefusedCase {
        const char* name;
        CFPropertyList value;
        const char* reason;
    };
    const RefusedCase cases[] = {
        {"NUL in a key",            badKey,                            "a text holds a control character"  },
        {"control character",       "\x1B",                            "a text holds a control character"  },
        {"Latin 1",                 "\xE9t\xE9",                       "a text is not UTF-8"               },
        {"surrogate",               "\xED\xA0\x80",                    "a text is not UTF-8"               },
        {"U+FFFE",                  "\xEF\xBF\xBE",                    "a text holds U+FFFE or U+FFFF"     },
        {"U+FFFF",                  "a\xEF\xBF\xBF",                   "a text holds U+FFFE or U+FFFF"     },
        {"before the year 1",       CFDate{FirstSecond - 1},           "a date outside the years 1 to 9999"},
        {"after the year 9999",     CFDate{LastSecond + 1},            "a date outside the years 1 to 9999"},
        {"end of time",             CFDate{INT64_MAX},                 "a date outside the years 1 to 9999"},
        {"nested, innermost empty", Nested(201),                       "values are nested deeper than 200" },
        {"too many",                CFArray(PropertyListMaximumValues, true),                                "more than 4000000 values"},
        {"too large",                         ampersands,                                                "the property list would be larger than 64 MiB"                                                 },
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Written(row.value), std::string("not written: ") + row.reason);
    }
}

TEST(PropertyListWriter, ComesBackEqual)
{
    struct BackCase {
        const char* name;
        CFPropertyList value;
    };
    const BackCase cases[] = {
        {"carriage returns",      "\r\r\n\n\r"                             },
        {"white space",           " \t \n "                                },
        {"end of character data", "]]>"                                    },
        {"C1 and delete",         "\x7F\xC2\x85\xE2\x80\xA8"               },
        {"like a reference",      "&amp;&#13;"                             },
        {"deepest",               Nested(200)                              },
        {"smallest real",         std::numeric_limits<double>::denorm_min()},
        {"largest real",          std::numeric_limits<double>::max()       },
        {"infinite below",        -std::numeric_limits<double>::infinity() },
        {"sixteen digits",        0.1 + 0.2                                },
        {"lowest integer",        std::numeric_limits<std::int64_t>::min() },
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        ParseError error;
        EXPECT_EQ(ReadPropertyList(Written(row.value), error), row.value) << error.reason;
    }
    ParseError error;
    const auto back = ReadPropertyList(Written(-std::nan("")), error);
    ASSERT_TRUE(back.has_value()) << error.reason;
    EXPECT_TRUE(std::isnan(*back->get<double>()));
}

TEST(PropertyListWriter, ManagesHugeValues)
{
    constexpr int Keys = 1'000'000;
    CFDictionary many;
    for (int number = 0; number < Keys; ++number) {
        many.set("key" + std::to_string(number), number);
    }
    const CFPropertyList values[] = {std::move(many), std::string(50'000'000, 'x')};
    for (const CFPropertyList& value : values) {
        SCOPED_TRACE(value.kindName());
        const auto start = std::chrono::steady_clock::now();
        ParseError error;
        const auto back = ReadPropertyList(Written(value), error);
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        EXPECT_TRUE(back == value) << error.reason;
        // Some tenths of a second, or a few under the sanitizers; time in the square of the size
        // would be minutes.
        EXPECT_LT(taken.count(), 30);
    }
}

} // namespace
} // namespace tarvo
