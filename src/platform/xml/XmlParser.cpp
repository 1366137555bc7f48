#include "platform/xml/XmlParser.h"

#include <algorithm>
#include <cctype>
#include <mutex>

namespace tarvo {

void XmlParserDeleter::operator()(xmlParserCtxt* parser) const
{
    xmlFreeDoc(parser->myDoc);
    xmlFreeParserCtxt(parser);
}

void InitializeXmlParser()
{
    static std::once_flag initialized;
    std::call_once(initialized, xmlInitParser);
}

bool ParseXmlDocument(xmlParserCtxt& parser)
{
    xmlCtxtUseOptions(&parser, XML_PARSE_HUGE | XML_PARSE_NONET | XML_PARSE_NOENT);
    xmlParseDocument(&parser);
    return parser.wellFormed != 0;
}

ParseError ParseErrorOf(const xmlError& error)
{
    std::string reason = error.message == nullptr ? "not well-formed" : error.message;
    reason.erase(reason.find_last_not_of('\n') + 1);
    if (reason.size() > 1 && std::islower(static_cast<unsigned char>(reason[1])) != 0) {
        reason[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(reason[0])));
    }
    return {static_cast<std::size_t>(error.line), std::move(reason)};
}

ParseError InOneLine(ParseError error)
{
    std::replace_if(
        error.reason.begin(), error.reason.end(),
        [](char letter) { return letter < ' ' && letter >= 0; }, ' ');
    return error;
}

} // namespace tarvo
