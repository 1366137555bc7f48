#include "platform/cf/PropertyListReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvo {
namespace {

using testing::HasSubstr;
using namespace std::string_literals;

std::string Document(const std::string& body)
{
    return "<plist>\n" + body + "\n</plist>\n";
}

std::string Repeated(std::string_view text, std::size_t count)
{
    std::string repeated;
    while (count-- > 0) {
        repeated += text;
    }
    return repeated;
}

// The value, or the error as text where a value was expected.
CFPropertyList Read(const std::string& xml)
{
    ParseError error;
    auto value = ReadPropertyList(xml, error);
    return value ? std::move(*value) : "unreadable: " + error.reason;
}

// What plistlib does not write; its own forms are plist_differential.py's.
TEST(PropertyListReader, ReadsEveryFormOfAScalar)
{
    const std::pair<const char*, CFPropertyList> cases[] = {
        {"<true> </true>",                            true                                    },
        {"<integer>\n\t007 </integer>",               7                                       },
        {"<real>-1.5e3</real>",                       -1500.0                                 },
        {"<real>3</real>",                            3.0                                     },
        {"<real>+.5</real>",                          0.5                                     },
        {"<real>-Infinity</real>",                    -std::numeric_limits<double>::infinity()},
        {"<date>2000-02-29T12:00:00Z</date>",         CFDate{951825600}                       },
        {"<data/>",                                   CFData{}                                },
        {"<data>\n\tQU\n\tJD RA\t==\n</data>",        CFData{"ABCD"}                          },
        {"<string/>",                                 ""                                      },
        {"<string> \t\n</string>",                    " \t\n"                                 },
        {"<string>a\r\nb\rc</string>",                "a\nb\nc"                               },
        {"<string>&lt;&#13;&#x1F600;&quot;</string>", "<\r\xF0\x9F\x98\x80\""                 },
        {"<string>a<![CDATA[<&amp;]]>b</string>",     "a<&amp;b"                              },
        {"<string>a<!-- & -->b<?x y?>c</string>",     "abc"                                   },
    };
    for (const auto& [body, value] : cases) {
        EXPECT_EQ(Read(Document(body)), value) << body;
    }
}

std::string TextOf(const PropertyListPlace& place)
{
    std::string text = std::to_string(place.line);
    for (const PropertyListPlace& each : place.inside) {
        text += (&each == &place.inside.front() ? "(" : " ") + TextOf(each);
    }
    return text + (place.inside.empty() ? "" : ")");
}

TEST(PropertyListReader, TellsTheLineOfEachValueOrItsKey)
{
    const std::pair<const char*, const char*> cases[] = {
        {"\n<true/>",                                                               "3"                  },
        {"<dict><key>a</key>\n<dict/>\n<key>b\n</key><array>\n<true/>\n<dict>\n<key>c</key><data/>"
         "</dict><string>\n</string></array>\n<key>d</key><true/></dict>", "2(2 4(6 7(8) 8) 10)"},
    };
    for (const auto& [body, places] : cases) {
        ParseError error;
        PropertyListPlace place;
        ASSERT_TRUE(ReadPropertyList(Document(body), error, &place)) << error.reason;
        EXPECT_EQ(TextOf(place), places);
    }
}

TEST(PropertyListReader, ReadsContainersInTheirOrder)
{
    const CFPropertyList value = Read("\xEF\xBB\xBF<?xml version='1.0' encoding='utf-8'?>\n"
                                      "<!-- first --><!DOCTYPE plist SYSTEM 'none.dtd' []>\n"
                                      "<plist version='1.0'><dict>"
                                      "<key>b</key><array><integer>1</integer><dict/></array>"
                                      "<key/><array/>"
                                      "<key> a&amp;</key><true/>"
                                      "</dict></plist><!-- last -->");
    const CFDictionary expected(std::vector<CFDictionary::Entry>{
        {"b",   CFArray{1, CFDictionary()}},
        {"",    CFArray()                 },
        {" a&", true                      }
    });
    ASSERT_EQ(value, CFPropertyList(expected));
    EXPECT_EQ(value.get<CFDictionary>()->begin()->key, "b");
}

// name, xml, line, reason, or a part of it where the parser words it
using RefusedCase = std::tuple<const char*, std::string, std::size_t, const char*>;

void ExpectRefused(const RefusedCase& row)
{
    const auto& [name, xml, line, reason] = row;
    ParseError error;
    EXPECT_EQ(ReadPropertyList(xml, error), std::nullopt) << name;
    EXPECT_EQ(error.line, line) << name;
    EXPECT_THAT(error.reason, HasSubstr(reason)) << name;
}

void ExpectBad(const std::string& element, std::initializer_list<std::string> texts)
{
    for (const std::string& text : texts) {
        const std::string body = "<" + element + ">" + text + "</" + element + ">";
        const std::string reason = "bad " + element + " \"" + text + "\"";
        ExpectRefused({body.c_str(), Document(body), 2, reason.c_str()});
    }
}

TEST(PropertyListReader, RefusesScalarsThatAreNotExactlyOfTheirForm)
{
    ExpectBad("integer", {"", "-", "1.0", "0x10", "1 2", "1e3", "--1", "9223372036854775808",
                          "-9223372036854775809", "\xD9\xA1"});
    ExpectBad("real", {"", ".", "1,5", "1e", "0x1p3", "1e400", "-1e400", "+-1", "nan(1)", "infinit",
                       "1 2", "1f"});
    ExpectBad("date", {"", "2026-11-21", "2026-11-21T07:30:00", "2026-11-21T07:30:00+01:00",
                       "2026-02-29T00:00:00Z", "2026-13-01T00:00:00Z", "2026-00-01T00:00:00Z",
                       "2026-01-00T00:00:00Z", "0000-01-01T00:00:00Z", "2026-01-01T24:00:00Z",
                       "2026-01-01T00:60:00Z", "2026-01-01T00:00:60Z", "-026-01-01T00:00:00Z",
                       "2026-1--01T00:00:00Z", "2026-01-01t00:00:00Z"});
    ExpectBad("data",
              {"A", "AA", "AAA", "A===", "====", "=", "AA=A", "AAAA=", "AB==", "AAB=", "AA-_"});
}

TEST(PropertyListReader, RefusesBodiesWithLineAndReason)
{
    const std::string digits(39, '9');
    const std::string twice = "<dict>" + Repeated("<key>a</key><true/>", 2) + "</dict>";
    const std::string full =
        "<array>" + Repeated("<true/>", PropertyListMaximumValues) + "</array>";
    const std::string shown = "bad integer \"" + digits + "...\"";
    const RefusedCase cases[] = {
        {"list in a list",      "<plist/>",                                  2, "\"plist\" inside"            },
        {"second root",         "<true/>\n<true/>",                          3, "a second root value"         },
        {"unknown element",     "<array>\n<UID/></array>",                   3, "unknown element \"UID\""     },
        {"prefix",              "<xml:dict/>",                               2, "unknown element \"xml:dict\""},
        {"namespace",           "<dict xmlns='urn:a'/>",                     2, "a namespace is declared"     },
        {"key outside",         "<array><key>a</key></array>",               2, "a key outside"               },
        {"no key",              "<dict><true/></dict>",                      2, "a value without a key"       },
        {"two keys",            "<dict><key>a</key>\n<key>b</key></dict>",   3, "key \"a\" has no value"      },
        {"last key",            "<dict><key>a\nb</key></dict>",              3, "key \"a b\" has no value"    },
        {"key twice",           twice,                                       2, "key \"a\" appears twice"     },
        {"in a text",           "<string>a<true/></string>",                 2, "\"true\" inside a text"      },
        {"text in an array",    "<array>\nx</array>",                        3, "text outside a value"        },
        {"text in a boolean",   "<true>1</true>",                            2, "text outside a value"        },
        {"no such entity",      "<string>&a;</string>",                      2, "entity 'a' not defined"      },
        {"line end",            "<integer>1\n2</integer>",                   3, "bad integer \"1 2\""         },
        {"cut before a letter", "<integer>" + digits + "\xC3\xA9</integer>", 2, shown.c_str()                 },
        {"NUL",                 "<string>a\n\0</string>"s,                   3, "a NUL character"             },
        {"NUL by reference",    "<string>&#0;</string>",                     2, "xmlChar value 0"             },
        {"control character",   "<string>\x1B</string>",                     2, "har"                         },
        {"U+FFFE",              "<string>\xEF\xBF\xBE</string>",             2, "har"                         },
        {"Latin 1",             "\n<string>\xE9t\xE9</string>",              3, "not UTF-8"                   },
        {"values",              full,                                        2, "more than 4000000 values"    },
    };
    for (const auto& [name, body, line, reason] : cases) {
        ExpectRefused({name, Document(body), line, reason});
    }
}

TEST(PropertyListReader, RefusesDocumentsWithLineAndReason)
{
    constexpr const char* Entities = "entities may not be declared";
    const std::string list = "<plist><true b='&b;'/></plist>";
    const std::string type = "<!DOCTYPE plist ";
    std::string largest = Document("<string/>");
    largest.resize(PropertyListLimits.bytes, '\n');
    EXPECT_EQ(Read(largest), CFPropertyList(""));
    const RefusedCase cases[] = {
        {"nothing",     "",                       1,                                     "empty"                       },
        {"white space", " \n\n",                  1,                                     "not an XML document"         },
        {"binary list", std::string("bplist00\0", 9),                                    0,                              "a binary property list"},
        {"cut short",             "<plist>\n<dict>\n<key>a</key>\n",                           4,                   "nd of data"                     },
        {"behind the end",             "<plist>\n<true/></plist>\nx",                      3,                  "extra content"    },
        {"no value",             "<plist>\n\n</plist>",                            3,                                "no value in the"                             },
        {"another root",             "\n<dict/>",                        2,                                      "root element is not \"plist\""              },
        {"UTF-16",             "\xFF\xFE<\0p\0"s,                              1,                                      "the encoding is not UTF-8"                       },
        {"entity",             type + "[\n<!ENTITY b 'b'>]>" + list,                              2,                   Entities},
        {"comment",             type + "[<!-- ]> --><!ENTITY % b ''>]>" + list,                             1,        Entities             },
        {"quoted",             type + "SYSTEM ']>' [<?x ]> ?><!ENTITY b ''>]>" + list,                              1, Entities},
        {"default",             type + "[<!ATTLIST true b CDATA ''>]>" + list,                             1,         "declarations"                      },
        {"entity elsewhere",             type + "SYSTEM 'file:///etc/hosts'>" + list,                    1,  "entity 'b'"},
        {"parameter entity",             type + "[%b;]>" + list,                    1,                       "not "                                           },
        {"one byte more",             largest + "\n",                       0,                                  "larger than 64 MiB"},
    };
    for (const auto& row : cases) {
        ExpectRefused(row);
    }
}

TEST(PropertyListReader, WantsADictionaryWhereOneMustBe)
{
    ParseError error;
    EXPECT_EQ(ReadPropertyListDictionary(Document("<dict/>"), error), CFDictionary());
    EXPECT_EQ(ReadPropertyListDictionary(Document("<array/>"), error), std::nullopt);
    EXPECT_EQ(error.reason, "the root is no dictionary but of kind array");
    EXPECT_EQ(ReadPropertyListDictionary("<plist>", error), std::nullopt);
}

} // namespace
} // namespace tarvo
