#include "platform/cf/PropertyListReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace tarvo {
namespace {

using testing::HasSubstr;

constexpr double Infinity = std::numeric_limits<double>::infinity();

std::string Document(const std::string& body)
{
    return "<plist>\n" + body + "\n</plist>\n";
}

std::string Repeated(std::string_view text, std::size_t count)
{
    std::string repeated;
    repeated.reserve(text.size() * count);
    for (std::size_t number = 0; number < count; ++number) {
        repeated += text;
    }
    return repeated;
}

std::string Arrays(std::size_t count, const std::string& inside)
{
    return Repeated("<array>", count) + inside + Repeated("</array>", count);
}

// The value, or the error as text where a value was expected.
CFPropertyList Read(const std::string& xml)
{
    ParseError error;
    auto value = ReadPropertyList(xml, error);
    return value ? std::move(*value) : "unreadable: " + error.reason;
}

struct ReadCase {
    const char* name;
    const char* body;
    CFPropertyList value;
};

TEST(PropertyListReader, ReadsEveryFormOfAScalar)
{
    // name, body, value
    const ReadCase cases[] = {
        {"false",                 "<false/>",                                  false                                    },
        {"true with an end tag",  "<true> </true>",                            true                                     },
        {"lowest integer",        "<integer>-9223372036854775808</integer>",   INT64_MIN                                },
        {"highest integer",       "<integer>9223372036854775807</integer>",    INT64_MAX                                },
        {"integer, white space",  "<integer>\n\t007 </integer>",               7                                        },
        {"real",                  "<real>-1.5e3</real>",                       -1500.0                                  },
        {"real without fraction", "<real>3</real>",                            3.0                                      },
        {"real with plus",        "<real>+.5</real>",                          0.5                                      },
        {"smallest real",         "<real>5e-324</real>",                       std::numeric_limits<double>::denorm_min()},
        {"infinite",              "<real>inf</real>",                          Infinity                                 },
        {"infinite below",        "<real>-Infinity</real>",                    -Infinity                                },
        {"first date",            "<date>0001-01-01T00:00:00Z</date>",         CFDate{-62135596800}                     },
        {"last date",             "<date>9999-12-31T23:59:59Z</date>",         CFDate{253402300799}                     },
        {"leap day",              "<date>2000-02-29T12:00:00Z</date>",         CFDate{951825600}                        },
        {"no data",               "<data/>",                                   CFData{}                                 },
        {"data of one byte",      "<data>/w==</data>",                         CFData{"\xFF"}                           },
        {"data of two bytes",     "<data>+/8=</data>",                         CFData{"\xFB\xFF"}                       },
        {"data in lines",         "<data>\n\tQU\n\tJD RA\t==\n</data>",        CFData{"ABCD"}                           },
        {"empty text",            "<string/>",                                 ""                                       },
        {"white space is text",   "<string> \t\n</string>",                    " \t\n"                                  },
        {"line ends",             "<string>a\r\nb\rc</string>",                "a\nb\nc"                                },
        {"references",            "<string>&lt;&#13;&#x1F600;&quot;</string>", "<\r\xF0\x9F\x98\x80\""                  },
        {"character data",        "<string>a<![CDATA[<&amp;]]>b</string>",     "a<&amp;b"                               },
        {"comment inside",        "<string>a<!-- & -->b<?x y?>c</string>",     "abc"                                    },
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Read(Document(row.body)), row.value);
    }
    EXPECT_TRUE(std::isnan(*Read(Document("<real>NaN</real>")).get<double>()));
    EXPECT_TRUE(std::signbit(*Read(Document("<real>-0.0</real>")).get<double>()));
}

TEST(PropertyListReader, ReadsContainersInTheirOrder)
{
    const CFPropertyList value = Read("\xEF\xBB\xBF<?xml version='1.0' encoding='utf-8'?>\n"
                                      "<!-- first --><!DOCTYPE plist SYSTEM 'none.dtd' []>\n"
                                      "<plist version='1.0'><dict>"
                                      "<key>b</key><array><integer>1</integer><dict/></array>"
                                      "<key/><array/>"
                                      "<key> a&amp;</key><dict><key>b</key><true/></dict>"
                                      "</dict></plist><!-- last -->");
    const auto* dictionary = value.get<CFDictionary>();
    ASSERT_NE(dictionary, nullptr) << *value.get<std::string>();
    ASSERT_EQ(dictionary->size(), 3U);
    EXPECT_EQ(dictionary->begin()->key, "b");
    EXPECT_EQ(*dictionary->find("b"), CFPropertyList(CFArray{1, CFDictionary()}));
    EXPECT_EQ(*dictionary->find(""), CFPropertyList(CFArray()));
    EXPECT_TRUE(dictionary->get<CFDictionary>(" a&")->isTrue("b"));
}

struct RefusedCase {
    const char* name;
    std::string xml;
    std::size_t line;
    const char* reason; // a part of it where the parser words it
};

void ExpectRefused(const RefusedCase& row)
{
    SCOPED_TRACE(row.name);
    ParseError error;
    EXPECT_EQ(ReadPropertyList(row.xml, error), std::nullopt);
    EXPECT_EQ(error.line, row.line);
    EXPECT_THAT(error.reason, HasSubstr(row.reason));
}

TEST(PropertyListReader, RefusesScalarsThatAreNotExactlyOfTheirForm)
{
    struct BadScalar {
        const char* element;
        std::vector<std::string> texts;
    };
    const BadScalar cases[] = {
        {"integer",
         {"", "-", "1.0", "0x10", "1 2", "1e3", "--1", "9223372036854775808",
          "-9223372036854775809", "\xD9\xA1"}                                                       },
        {"real",
         {"", ".", "1,5", "1e", "0x1p3", "1e400", "-1e400", "+-1", "nan(1)", "infinit", "1 2",
          "1f"}                                                                                     },
        {"date",
         {"", "2026-11-21", "2026-11-21T07:30:00", "2026-11-21T07:30:00+01:00",
          "2026-02-29T00:00:00Z", "2026-13-01T00:00:00Z", "2026-00-01T00:00:00Z",
          "2026-01-00T00:00:00Z", "0000-01-01T00:00:00Z", "2026-01-01T24:00:00Z",
          "2026-01-01T00:60:00Z", "2026-01-01T00:00:60Z", "-026-01-01T00:00:00Z",
          "2026-1--01T00:00:00Z", "2026-01-01t00:00:00Z"}                                           },
        {"data",    {"A", "AA", "AAA", "A===", "====", "=", "AA=A", "AAAA=", "AB==", "AAB=", "AA-_"}},
    };
    for (const auto& [element, texts] : cases) {
        for (const std::string& text : texts) {
            const std::string tag = element;
            const std::string reason = "bad " + tag + " \"" + text + "\"";
            ExpectRefused({text.c_str(), Document("<" + tag + ">" + text + "</" + tag + ">"), 2,
                           reason.c_str()});
        }
    }
}

TEST(PropertyListReader, ShowsTheBeginningOfABadTextInOneLine)
{
    const std::string digits = Repeated("9", 39) + "\xC3\xA9";
    ExpectRefused({"cut before the letter", Document("<integer>" + digits + "9</integer>"), 2,
                   "bad integer \"999999999999999999999999999999999999999...\""});
    ExpectRefused({"line end", Document("<integer>1\n2</integer>"), 3, "bad integer \"1 2\""});
    ExpectRefused({"line end in a key", Document("<dict><key>a\nb</key></dict>"), 3,
                   "key \"a b\" has no value"});
}

TEST(PropertyListReader, RefusesWhatIsNoPropertyListWithLineAndReason)
{
    // name, xml, line, reason
    const RefusedCase cases[] = {
        {"nothing",                    "",                                                              1, "empty"                            },
        {"white space",                " \n\n",                                                         1, "not an XML document"              },
        {"binary property list",       "bplist00",                                                      1, "not an XML document"              },
        {"cut short",                  "<plist>\n<dict>\n<key>a</key>\n",                               4, "nd of data"                       },
        {"no end of the list",         "<plist><true/>",                                                1, "nd of data"                       },
        {"behind the end",             "<plist>\n<true/></plist>\nx",                                   3, "Extra content"                    },
        {"tags that cross",            Document("<array><dict></array></dict>"),                        2, "mismatch"                         },
        {"no value",                   "<plist>\n\n</plist>",                                           3, "no value in the property list"    },
        {"another root",               "\n<dict/>",                                                     2, "the root element is not \"plist\""},
        {"list in a list",             Document("<plist/>"),                                            2, "\"plist\" inside a property list" },
        {"second root",                Document("<true/>\n<true/>"),                                    3, "a second root value"              },
        {"unknown element",            Document("<array>\n<UID/></array>"),                             3, "unknown element \"UID\""          },
        {"known name in capitals",     Document("<Dict/>"),                                             2, "unknown element \"Dict\""         },
        {"prefix",                     Document("<xml:dict/>"),                                         2, "unknown element \"xml:dict\""     },
        {"namespace",                  Document("<dict xmlns='urn:a'/>"),                               2, "a namespace is declared"          },
        {"key outside",                Document("<array><key>a</key></array>"),                         2, "a key outside a dictionary"       },
        {"value without key",          Document("<dict><true/></dict>"),                                2, "a value without a key"            },
        {"two keys",                   Document("<dict><key>a</key>\n<key>b</key>\n</dict>"),           3,
         "key \"a\" has no value"                                                                                                             },
        {"last key",                   Document("<dict><key>a</key><true/>\n<key>b</key></dict>"),      3,
         "key \"b\" has no value"                                                                                                             },
        {"key twice",                  Document("<dict><key>a</key><true/><key>a</key><true/></dict>"), 2,
         "key \"a\" appears twice"                                                                                                            },
        {"element in a text",          Document("<string>a<true/></string>"),                           2,
         "element \"true\" inside a text"                                                                                                     },
        {"element in a key",           Document("<dict><key><string/></key></dict>"),                   2, "inside a text"                    },
        {"text in an array",           Document("<array>\nx</array>"),                                  3, "text outside a value"             },
        {"text in a boolean",          Document("<true>1</true>"),                                      2, "text outside a value"             },
        {"reference outside",          Document("<array>&#65;</array>"),                                2, "text outside a value"             },
        {"two attributes of one name", Document("<true a='1' a='2'/>"),                                 2, "redefined"                        },
    };
    for (const auto& row : cases) {
        ExpectRefused(row);
    }
}

TEST(PropertyListReader, RefusesTextThatXmlLacks)
{
    using namespace std::string_literals;
    // name, xml, line, reason
    const RefusedCase cases[] = {
        {"NUL",                            Document("<string>a\n\0</string>"s),                                 3, "a NUL character"          },
        {"NUL by reference",               Document("<string>&#0;</string>"),                                   2, "xmlChar value 0"          },
        {"control character",              Document("<string>\x1B</string>"),                                   2, "har"                      },
        {"control character by reference", Document("<string>&#8;</string>"),                                   2, "xmlChar value 8"          },
        {"surrogate by reference",         Document("<string>&#xD800;</string>"),                               2, "xmlChar value"            },
        {"U+FFFE",                         Document("<string>\xEF\xBF\xBE</string>"),                           2, "har"                      },
        {"Latin 1",                        Document("\n<string>\xE9t\xE9</string>"),                            3, "not UTF-8"                },
        {"overlong, two bytes",            Document("<string>\xC1\x81</string>"),                               2, "not UTF-8"                },
        {"overlong, three bytes",          Document("<string>\xE0\x81\x81</string>"),                           2, "not UTF-8"                },
        {"overlong, four bytes",           Document("<string>\xF0\x80\x81\x81</string>"),                       2, "not UTF-8"                },
        {"surrogate",                      Document("<string>\xED\xA0\x80</string>"),                           2, "not UTF-8"                },
        {"above U+10FFFF",                 Document("<string>\xF4\x90\x80\x80</string>"),                       2, "not UTF-8"                },
        {"half a letter",                  Document("<string>\xC3</string>"),                                   2, "not UTF-8"                },
        {"in a comment",                   Document("<true/><!--\n\xFF-->"),                                    3, "not UTF-8"                },
        {"in an attribute",                Document("<true a='\xFF'/>"),                                        2, "not UTF-8"                },
        {"in a key",                       Document("<dict><key>\xFF</key><true/></dict>"),                     2, "not UTF-8"                },
        {"UTF-16",                         "\xFF\xFE<\0p\0"s,                                                   1, "the encoding is not UTF-8"},
        {"UTF-16 without a mark",          "<\0p\0l\0"s,                                                        1, "a NUL character"          },
        {"Latin 1 declared",               "<?xml version='1.0' encoding='ISO-8859-1'?><plist><true/></plist>", 1,
         "the encoding is not UTF-8"                                                                                                          },
        {"encoding unknown",               "<?xml version=\"1.0\" encoding=\"none\"?><plist><true/></plist>",   1,
         "the encoding is not UTF-8"                                                                                                          },
    };
    for (const auto& row : cases) {
        ExpectRefused(row);
    }
}

TEST(PropertyListReader, ExpandsAndFetchesNothing)
{
    const std::string type = "<!DOCTYPE plist SYSTEM 'file:///etc/hostname'>\n";
    // name, xml, line, reason
    const RefusedCase cases[] = {
        {"declared",                            "<!DOCTYPE plist [\n<!ENTITY a 'b'>]>" + Document("<string>&a;</string>"), 2,
         "entities may not be declared"                                                                                                               },
        {"behind a comment",
         "<!DOCTYPE plist [<!-- ]> --><!ENTITY % a 'b'>]>" + Document("<true/>"),                                          1,
         "entities may not be declared"                                                                                                               },
        {"behind a quoted bracket",
         "<!DOCTYPE plist SYSTEM ']>' [<?x ]> ?><!ENTITY a 'b'>]>" + Document("<true/>"),                                  1,
         "entities may not be declared"                                                                                                               },
        {"attributes by default",
         "<!DOCTYPE plist [<!ATTLIST true a CDATA 'b'>]>" + Document("<true/>"),                                           1,
         "declarations in the document type"                                                                                                          },
        {"not declared",                        Document("<string>&a;</string>"),                                          2, "Entity 'a' not defined"},
        {"declared elsewhere",                  type + Document("<string>a&b;c</string>"),                                 3,
         "Entity 'b' not defined"                                                                                                                     },
        {"declared elsewhere, in an attribute", type + Document("<true b='&b;'/>"),                                        3,
         "Entity 'b' not defined"                                                                                                                     },
        {"parameter reference",                 "<!DOCTYPE plist [%a;]>" + Document("<true/>"),                            1, "not "                  },
    };
    for (const auto& row : cases) {
        ExpectRefused(row);
    }
    EXPECT_EQ(Read(type + Document("<true/>")), CFPropertyList(true));
}

TEST(PropertyListReader, KeepsItsLimits)
{
    EXPECT_EQ(Read(Document(Arrays(200, "<true/>"))).kindName(), std::string("array"));
    const std::string full = Repeated("<true/>", PropertyListMaximumValues - 1);
    std::string largest = Document("<string/>");
    largest.resize(PropertyListLimits.bytes, '\n');
    EXPECT_EQ(Read(largest), CFPropertyList(""));

    // name, xml, line, reason
    const RefusedCase cases[] = {
        {"one container more",                            Document(Arrays(201, "")), 2,                    "values are nested deeper than 200"},
        {"one byte more",                                 largest + "\n",      0,    "larger than 64 MiB"},
        {"one value more", Document("<array>" + full + "<true/></array>"),                   2,
         "more than 4000000 values"                                                                    },
        {"attributes",                                    Document("<true" + Repeated(" a=''",                                                      65) + "/>"),                                   2,
         "an element has more than 64 attributes"                                   },
        {"no end of nesting",                                     "<plist>" + Repeated("<dict><key>a</key>",                                                       1'000'000),                                      1,
         "elements are nested deeper than 202"                        },
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
