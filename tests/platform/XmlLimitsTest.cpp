#include "platform/xml/XmlLimits.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

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
        const ParseError error = CheckXmlLimits(xml, Narrow).value_or(ParseError{});
        EXPECT_EQ(error.line, line) << name;
        EXPECT_EQ(error.reason, reason) << name;
    }
    EXPECT_EQ(CheckXmlLimits("<a>" + std::string(197, ' '), Narrow), std::nullopt);
    EXPECT_NE(CheckXmlLimits("<a>" + std::string(198, ' '), Narrow), std::nullopt);
}

} // namespace
} // namespace tarvo
