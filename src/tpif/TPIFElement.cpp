#include "tpif/TPIFElement.h"

#include "tpif/XmlEntities.h"

#include <array>
#include <charconv>

namespace tarvo {
namespace {

std::string_view AttributesOf(TPIFSyntax syntax)
{
    switch (syntax) {
    case TPIFSyntax::Integer:
        return " syntax=\"integer\"";
    case TPIFSyntax::SpacedInteger:
        return " syntax =\"integer\"";
    case TPIFSyntax::Keyword:
        return " syntax=\"keyword\"";
    case TPIFSyntax::Enum:
        return " syntax=\"enum\"";
    case TPIFSyntax::Name:
        return " syntax=\"name\" xml:space=\"preserve\"";
    case TPIFSyntax::Text:
        return " syntax=\"text\" xml:space=\"preserve\"";
    case TPIFSyntax::Uri:
        return " syntax=\"uri\"";
    case TPIFSyntax::MimeMediaType:
        return " syntax=\"mimeMediaType\"";
    case TPIFSyntax::Resolution:
        return " syntax=\"resolution\"";
    case TPIFSyntax::OneSetOf:
        return " syntax=\"1setOf\"";
    case TPIFSyntax::Collection:
        return " syntax=\"collection\"";
    case TPIFSyntax::RangeOfInteger:
        return " syntax=\"rangeOfInteger\"";
    }
    return "";
}

void WriteIndent(TPIFChannel& writeData, int indent)
{
    constexpr std::string_view Tabs = "\t\t\t\t\t\t\t\t";
    writeData.write(Tabs.substr(0, static_cast<std::size_t>(indent)));
}

void WriteStartTag(TPIFChannel& writeData, int indent, std::string_view name, TPIFSyntax syntax)
{
    WriteIndent(writeData, indent);
    writeData.write("<");
    writeData.write(name);
    writeData.write(AttributesOf(syntax));
    writeData.write(">");
}

void WriteEndTag(TPIFChannel& writeData, std::string_view name)
{
    writeData.write("</");
    writeData.write(name);
    writeData.write(">\n");
}

} // namespace

void WriteTPIFElement(TPIFChannel& writeData, int indent, std::string_view name, TPIFSyntax syntax,
                      std::string_view content)
{
    WriteStartTag(writeData, indent, name, syntax);
    DevWriteTpif(writeData, content);
    WriteEndTag(writeData, name);
}

void WriteTPIFElement(TPIFChannel& writeData, int indent, std::string_view name,
                      std::int64_t number, TPIFSyntax syntax)
{
    std::array<char, 24> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    WriteTPIFElement(writeData, indent, name, syntax, std::string_view(digits.data(), end));
}

TPIFBlock::TPIFBlock(TPIFChannel& writeData, int indent, std::string_view name, TPIFSyntax syntax)
    : writeData_(writeData), indent_(indent), name_(name)
{
    WriteStartTag(writeData, indent, name, syntax);
    writeData.write("\n");
}

TPIFBlock::~TPIFBlock()
{
    WriteIndent(writeData_, indent_);
    WriteEndTag(writeData_, name_);
}

std::string_view TPIFText(const CFDictionary& dictionary, std::string_view key)
{
    const auto* text = dictionary.get<std::string>(key);
    return text == nullptr ? std::string_view()
                           : std::string_view(*text).substr(0, text->find('\0'));
}

std::string EscapedTPIFText(const CFDictionary& dictionary, std::string_view key)
{
    return XMLCreateStringByEscapingEntities(TPIFText(dictionary, key));
}

} // namespace tarvo
