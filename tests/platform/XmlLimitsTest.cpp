#include "platform/xml/XmlLimits.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

std::optional<ParseError> InPieces(std::string_view xml, std::size_t size, const XmlLimits& limits)
{
    XmlLimitsWalk walk(limits);
    for (; !xml.empty(); xml.remove_prefix(std::min(size, xml.size()))) {
        walk.take(xml.substr(0, size));
    }
    walk.end();
    return walk.error();
}

// Three elements deep, two attributes.
TEST(XmlLimits, CountWhatIsMarkupAndNothingElse)
{
    constexpr XmlLimits Narrow = {.bytes = 200,
                                  .depth = 3,
                                  .attributes = 2,
                                  .attributesInAll = 3,
                                  .processingInstructions = 2};
    constexpr const char* Deep = "elements are nested deeper than 3";
    constexpr const char* Many = "an element has more than 2 attributes";
    constexpr const char* All = "more than 3 attributes";
    constexpr const char* Names = "more than 2 processing instructions";
    constexpr const char* Coded = "the encoding is not UTF-8";
    // name, xml, line (0 when it passes), reason
    constexpr std::tuple<const char*, const char*, std::size_t, const char*> Cases[] = {
        {"deepest",                       "<a><b><c/></b><b><c></c></b></a>",            0, ""   },
        {"one deeper",                    "<a>\n<b>\n<c>\n<d/></c></b></a>",             4, Deep },
        {"end tags that were never open", "</z></z><a><b><c><d>",                        1, Deep },
        {"in a comment",                  "<a><b><!-- <c><d> > \" --><c/></b></a>",      0, ""   },
        {"comment that does not end",     "<a><b><!--><c><d>",                           0, ""   },
        {"in character data",             "<a><b><![CDATA[<c><d><e>]]><c/></b></a>",     0, ""   },
        {"behind character data",         "<a><b><![CDATA[]]><c><d>",                    1, Deep },
        {"in an instruction",             "<a><b><?x <c><d> ?><c/></b></a>",             0, ""   },
        {"behind an instruction",         "<a><b><?x ?><c><d>",                          1, Deep },
        {"in an attribute",               "<a><b x='<c><d><e>/'><c y=\"'>/\"/></b></a>", 0, ""   },
        {"behind an attribute",           "<a><b x='/>'><c y='/'><d/>",                  1, Deep },
        {"most attributes",               "<a b='' c=\"'''\"/>",                         0, ""   },
        {"one attribute more",            "<a>\n<a b='' c='' d=''/>",                    2, Many },
        {"attributes in all",             "<a b='' c=''><d e=''/>\n<f g=''/></a>",       2, All  },
        {"instructions",                  "<?a?>\n<?b?>\n<?c?>",                         3, Names},
        {"document type in between",      "<!DOCTYPE a SYSTEM '>' [ ] ><a><b><c><d>",    1, Deep },
        {"end inside a document type",    "<!DOCTYPE a [",                               0, ""   },
        {"encoding in lower case",        "<?xml version='1' encoding='utf-8'?><a/>",    0, ""   },
        {"part of UTF-8",                 "<?xml\nencoding = \"us-ascii\"?><a/>",        0, ""   },
        {"of a style sheet",              "<?xml-stylesheet encoding='UTF-16'?><a/>",    0, ""   },
        {"one byte a letter",             "<?xml version='1' encoding='latin1'?><a/>",   1, Coded},
        {"behind another",                "<?xml a='encoding' encoding='utf-16'?><a/>",  1, Coded},
        {"encoding without its end",      "<?xml encoding='UTF-8",                       0, ""   },
    };
    for (const auto& [name, xml, line, reason] : Cases) {
        for (const std::size_t size : {1U, 2U, 3U, 7U, 1000U}) {
            const ParseError error = InPieces(xml, size, Narrow).value_or(ParseError{});
            EXPECT_EQ(error.line, line) << name << " in pieces of " << size;
            EXPECT_EQ(error.reason, reason) << name << " in pieces of " << size;
        }
    }
    EXPECT_EQ(CheckXmlLimits("<a>" + std::string(197, ' '), Narrow), std::nullopt);
    EXPECT_NE(CheckXmlLimits("<a>" + std::string(198, ' '), Narrow), std::nullopt);
}

TEST(XmlLimits, TakeWholeCharactersWhereverPiecesEnd)
{
    constexpr const char* Coded = "the encoding is not UTF-8";
    // xml, line (0 when it passes), reason
    constexpr std::tuple<std::string_view, std::size_t, const char*> Cases[] = {
        {"\xEF\xBB\xBF \n<a>\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80</a>", 0,  ""              },
        {"<a>\n\xC3",                                                  2,  "not UTF-8"     },
        {"<a>\n\xF0\x9F\x98</a>",                                      2,  "not UTF-8"     },
        {"<a>\xED\xA0\x80</a>",                                        1,  "not UTF-8"     },
        {"<a>\n\n\xA9</a>",                                            3,  "not UTF-8"     },
        {std::string_view("<a>\n\0</a>",                               9), 2,                "a NUL character"},
        {"\xFE\xFF<a/>....",                                                            1,                                             Coded},
        {"text <a/>",                                                            1,                                                    "not an XML document"       },
        {" \n ",                                                            1,                                                         "not an XML document"     },
        {"",                                                            1,                                                             "empty"           },
        {"bplist00",                                                            0,                                                     "a binary property list, not XML"},
    };
    for (const auto& [xml, line, reason] : Cases) {
        for (const std::size_t size : {1U, 2U, 3U, 1000U}) {
            const ParseError error = InPieces(xml, size, XmlLimits()).value_or(ParseError{});
            EXPECT_EQ(error.line, line) << xml << " in pieces of " << size;
            EXPECT_EQ(error.reason, reason) << xml << " in pieces of " << size;
        }
    }
}

} // namespace
} // namespace tarvo
