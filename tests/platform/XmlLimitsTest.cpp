#include "platform/xml/XmlLimits.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

struct LimitCase {
    const char* name;
    const char* xml;
    std::size_t line; // 0 when it passes
    const char* reason;
};

// Three elements deep, two attributes.
TEST(XmlLimits, CountWhatIsMarkupAndNothingElse)
{
    constexpr XmlLimits Narrow = {.bytes = 200, .depth = 3, .attributes = 2};
    constexpr const char* Deep = "elements are nested deeper than 3";
    constexpr const char* Many = "an element has more than 2 attributes";
    // name, xml, line, reason
    constexpr LimitCase Cases[] = {
        {"deepest",                       "<a><b><c/></b><b><c></c></b></a>",            0, ""  },
        {"one deeper",                    "<a>\n<b>\n<c>\n<d/></c></b></a>",             4, Deep},
        {"end tags that were never open", "</z></z><a><b><c><d>",                        1, Deep},
        {"in a comment",                  "<a><b><!-- <c><d> > \" --><c/></b></a>",      0, ""  },
        {"comment that does not end",     "<a><b><!--><c><d>",                           0, ""  },
        {"in character data",             "<a><b><![CDATA[<c><d><e>]]><c/></b></a>",     0, ""  },
        {"behind character data",         "<a><b><![CDATA[]]><c><d>",                    1, Deep},
        {"in an instruction",             "<a><b><?x <c><d> ?><c/></b></a>",             0, ""  },
        {"behind an instruction",         "<a><b><?x ?><c><d>",                          1, Deep},
        {"in an attribute",               "<a><b x='<c><d><e>/'><c y=\"'>/\"/></b></a>", 0, ""  },
        {"behind an attribute",           "<a><b x='/>'><c y='/'><d/>",                  1, Deep},
        {"most attributes",               "<a b='' c=\"'''\"/>",                         0, ""  },
        {"one attribute more",            "<a>\n<a b='' c='' d=''/>",                    2, Many},
        {"document type in between",      "<!DOCTYPE a SYSTEM '>' [ ] ><a><b><c><d>",    1, Deep},
        {"end inside a tag",              "<a b='",                                      0, ""  },
        {"end inside a document type",    "<!DOCTYPE a [",                               0, ""  },
        {"end behind a bracket",          "<",                                           0, ""  },
    };
    for (const auto& row : Cases) {
        SCOPED_TRACE(row.name);
        const ParseError error = CheckXmlLimits(row.xml, Narrow).value_or(ParseError{});
        EXPECT_EQ(error.line, row.line);
        EXPECT_EQ(error.reason, row.reason);
    }
    EXPECT_EQ(CheckXmlLimits("<a>" + std::string(197, ' '), Narrow), std::nullopt);
    EXPECT_NE(CheckXmlLimits("<a>" + std::string(198, ' '), Narrow), std::nullopt);
}

TEST(XmlLimits, TakeEncodingsThatAreUtf8)
{
    // name, xml, line, reason
    constexpr LimitCase Cases[] = {
        {"lower case",        "<?xml version='1.0' encoding='utf-8'?><a/>",         0, ""},
        {"part of UTF-8",     "<?xml version='1.0'\nencoding = \"us-ascii\"?><a/>", 0, ""},
        {"of a style sheet",  "<?xml-stylesheet encoding='UTF-16'?><a/>",           0, ""},
        {"one byte a letter", "<?xml version='1.0' encoding='latin1'?><a/>",        1,
         "the encoding is not UTF-8"                                                     },
        {"behind another",    "<?xml a='encoding' encoding='utf-16'?><a/>",         1,
         "the encoding is not UTF-8"                                                     },
        {"without its end",   "<?xml encoding='UTF-8",                              0, ""},
    };
    for (const auto& row : Cases) {
        SCOPED_TRACE(row.name);
        const ParseError error = CheckXmlLimits(row.xml, XmlLimits()).value_or(ParseError{});
        EXPECT_EQ(error.line, row.line);
        EXPECT_EQ(error.reason, row.reason);
    }
}

} // namespace
} // namespace tarvo
