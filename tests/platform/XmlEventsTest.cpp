#include "platform/xml/XmlEvents.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

// Writes the events down: (name@line syntax? and ) around what is inside.
class WrittenEvents : public XmlEvents {
public:
    std::string startElement(const XmlElement& element) override
    {
        text += "(" + std::string(element.name()) + "@" + std::to_string(element.line());
        if (const auto syntax = element.attribute("syntax")) {
            text += " " + std::string(*syntax);
        }
        text += ":";
        return element.name() == "refused" ? "no such\nelement" : ""; // one line in the end
    }
    std::string endElement() override
    {
        text += ")";
        return "";
    }
    void characters(std::string_view characters) override { text += characters; }

    std::string text;
};

// name, xml, events, and of a document that is not read line and reason
constexpr std::tuple<const char*, const char*, const char*, std::size_t, const char*> Cases[] = {
    {"texts",                                 "<a>x<!-- y --><![CDATA[<&]]>&lt;&#65;<?p q?></a>",    "(a@1:x<&<A)",         0, ""                                     },
    {"attributes",                            "<a b='c'\n syntax =\"1&amp;2\">\n<c syntax=''/></a>", "(a@2 1&2:\n(c@3 :))", 0,
     ""                                                                                                                                                               },
    {"a declared prefix is dropped",          "<p:a xmlns:p='u' p:syntax='k'/>",                     "(a@1 k:)",            0, ""                                     },
    {"an undeclared one is part of the name", "<p:a/>",                                              "(p:a@1:)",            0, ""                                     },
    {"no document type is fetched",           "<!DOCTYPE a SYSTEM 'file:///etc/passwd'><a/>",        "(a@1:)",              0,
     ""                                                                                                                                                               },
    {"an entity of it",                       "<!DOCTYPE a SYSTEM 'a.dtd'><a>\n&b;</a>",             "",                    2, "entity 'b' not defined"               },
    {"an entity",                             "<!DOCTYPE a [<!ENTITY b 'c'>]><a/>",                  "",                    1, "entities may not be declared"         },
    {"a refusal",                             "<a>\n<refused/><b/></a>",                             "",                    2, "no such element"                      },
    {"tags that do not match",                "<a>\n<b>\n</a>",                                      "",                    3,
     "opening and ending tag mismatch: b line 2 and a"                                                                                                                },
    {"half a document",                       "<a>",                                                 "",                    1, "premature end of data in tag a line 1"},
};

TEST(XmlEvents, AreThoseOfTheDocument)
{
    for (const auto& [name, xml, expected, line, reason] : Cases) {
        SCOPED_TRACE(name);
        WrittenEvents events;
        ParseError error;
        const bool isRead = ReadXml(XmlSourceOf(xml), XmlLimits(), events, error);
        EXPECT_EQ(isRead, *reason == '\0');
        EXPECT_EQ(error.line, line);
        EXPECT_EQ(error.reason, reason);
        EXPECT_TRUE(!isRead || events.text == expected) << events.text;
    }
}

std::string Numbered(const std::string& before, const std::string& after, std::size_t count)
{
    std::string text;
    for (std::size_t number = 0; number < count; ++number) {
        text += before + std::to_string(number) + after;
    }
    return text;
}

TEST(XmlEvents, BoundWhatAParserKeeps)
{
    constexpr XmlLimits Limits = {.attributesInAll = 1'000'000};
    const std::pair<std::string, const char*> Rows[] = {
        {"<a>" + Numbered("<b",               "/>",    2000) + "</a>",              ""                              },
        {"<a>" + Numbered("<b",               "/>",    2100) + "</a>",              "more than 2048 different names"},
        {"<a>" + Numbered("<b c",             "=''/>", 2100) + "</a>",              "more than 2048 different names"},
        {"<a>" + Numbered("<b xmlns='u",      "'/>",   2100) + "</a>",              "more than 2048 different names"},
        {"<a>" + Numbered("<b xmlns='u' c='", "'/>",   9000) + "</a>",              ""                              },
        {"<a" + Numbered(" xmlns:p",          "='u'",  32) + "/>",                  ""                              },
        {"<a" + Numbered(" xmlns:p",          "='u'",  32) + "><b xmlns='u'/></a>",
         "more than 32 namespaces in one place"                                                                     },
    };
    for (const auto& [xml, reason] : Rows) {
        WrittenEvents events;
        ParseError error;
        EXPECT_EQ(ReadXml(XmlSourceOf(xml), Limits, events, error), *reason == '\0');
        EXPECT_EQ(error.reason, reason) << xml.substr(0, 40);
    }
}

TEST(XmlEvents, ReadInPiecesAndSayWhatTheSystemSays)
{
    const std::string xml = "<?xml version='1.0'?><!DOCTYPE a SYSTEM 'a.dtd'><a><![CDATA[" +
                            std::string(50'000, 'x') + "]]></a><!-- end -->";
    for (const std::size_t readable : {xml.size(), xml.size() / 2}) {
        std::size_t position = 0;
        const XmlSource slow = [&](char* bytes, std::size_t, std::string& reason) {
            reason = "Input/output error";
            const bool isBroken = position == readable && readable < xml.size();
            return isBroken ? std::nullopt : std::optional(xml.copy(bytes, 1, position++));
        };
        WrittenEvents events;
        ParseError error;
        const bool isWhole = readable == xml.size();
        EXPECT_EQ(ReadXml(slow, XmlLimits(), events, error), isWhole) << error.reason;
        EXPECT_EQ(error.reason, isWhole ? "" : "cannot read: Input/output error");
        EXPECT_TRUE(!isWhole || events.text.size() == 50'000 + 6) << events.text.size();
    }
}

} // namespace
} // namespace tarvo
