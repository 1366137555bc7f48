#include "platform/xml/XmlParser.h"

#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>

#include <algorithm>
#include <cctype>
#include <mutex>
#include <string>

namespace tarvo {
namespace {

XmlReceiver& ReceiverOf(void* context)
{
    return *static_cast<XmlReceiver*>(context);
}

xmlParserCtxt* ParserOf(const std::shared_ptr<void>& parser)
{
    return static_cast<xmlParserCtxt*>(parser.get());
}

void StartElement(void* context, const xmlChar* name, const xmlChar* prefix, const xmlChar* uri,
                  int namespaceCount, const xmlChar**, int attributeCount, int,
                  const xmlChar** attributes)
{
    ReceiverOf(context).startElement(
        {name, prefix, uri != nullptr, namespaceCount, attributeCount, attributes});
}

void EndElement(void* context, const xmlChar*, const xmlChar*, const xmlChar*)
{
    ReceiverOf(context).endElement();
}

void Characters(void* context, const xmlChar* text, int length)
{
    ReceiverOf(context).characters(
        {reinterpret_cast<const char*>(text), static_cast<std::size_t>(length)});
}

void ParserError(void* context, xmlErrorPtr error)
{
    if (error->level < XML_ERR_ERROR) {
        return;
    }
    std::string reason = error->message == nullptr ? "not well-formed" : error->message;
    reason.erase(reason.find_last_not_of('\n') + 1);
    if (reason.size() > 1 && std::islower(static_cast<unsigned char>(reason[1])) != 0) {
        reason[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(reason[0])));
    }
    ReceiverOf(context).parserError({static_cast<std::size_t>(error->line), std::move(reason)},
                                    error->domain == XML_FROM_NAMESPACE);
}

xmlSAXHandler Handlers()
{
    xmlSAXHandler handlers = {};
    handlers.startElementNs = StartElement;
    handlers.endElementNs = EndElement;
    handlers.characters = Characters;
    handlers.cdataBlock = Characters;
    handlers.ignorableWhitespace = Characters;
    handlers.serror = ParserError;
    handlers.initialized = XML_SAX2_MAGIC;
    return handlers;
}

void InitializeLibrary()
{
    static std::once_flag initialized;
    std::call_once(initialized, xmlInitParser);
}

std::shared_ptr<void> Owned(xmlParserCtxt* parser)
{
    if (parser == nullptr) {
        return nullptr;
    }
    return {parser, [](xmlParserCtxt* ended) {
                xmlFreeDoc(ended->myDoc);
                xmlFreeParserCtxt(ended);
            }};
}

} // namespace

XmlParser::XmlParser(XmlReceiver& receiver, std::string_view xml)
{
    InitializeLibrary();
    parser_ = Owned(xmlCreateMemoryParserCtxt(xml.data(), static_cast<int>(xml.size())));
    if (xmlParserCtxt* parser = ParserOf(parser_)) {
        *parser->sax = Handlers();
        parser->userData = &receiver;
    }
}

XmlParser::XmlParser(XmlReceiver& receiver, Read read, void* context)
{
    InitializeLibrary();
    xmlSAXHandler handlers = Handlers();
    parser_ = Owned(xmlCreateIOParserCtxt(&handlers, &receiver, read, nullptr, context,
                                          XML_CHAR_ENCODING_UTF8));
}

bool XmlParser::parse()
{
    xmlParserCtxt* parser = ParserOf(parser_);
    xmlCtxtUseOptions(parser, XML_PARSE_HUGE | XML_PARSE_NONET | XML_PARSE_NOENT);
    xmlParseDocument(parser);
    return parser->wellFormed != 0;
}

void XmlParser::stop()
{
    xmlStopParser(ParserOf(parser_));
}

std::size_t XmlParser::line() const
{
    return static_cast<std::size_t>(xmlSAX2GetLineNumber(ParserOf(parser_)));
}

int XmlParser::nameCount() const
{
    return xmlDictSize(ParserOf(parser_)->dict);
}

const unsigned char* XmlParser::nameOf(std::string_view name)
{
    return xmlDictLookup(ParserOf(parser_)->dict, reinterpret_cast<const xmlChar*>(name.data()),
                         static_cast<int>(name.size()));
}

ParseError InOneLine(ParseError error)
{
    std::replace_if(
        error.reason.begin(), error.reason.end(),
        [](char letter) { return letter < ' ' && letter >= 0; }, ' ');
    return error;
}

} // namespace tarvo
