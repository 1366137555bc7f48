#pragma once

#include "platform/xml/XmlLimits.h"

#include <libxml/parser.h>

#include <memory>
#include <string>
#include <string_view>

namespace tarvo {

struct XmlParserDeleter {
    void operator()(xmlParserCtxt* parser) const;
};
using XmlParser = std::unique_ptr<xmlParserCtxt, XmlParserDeleter>;

/// What the library sets up once for a process, whichever thread comes first.
void InitializeXmlParser();

/// Reads the document that the parser was made for. Nothing is fetched; limits of our own stand in
/// place of the parser's, which are narrower.
/// @return false when it is not well-formed
bool ParseXmlDocument(xmlParserCtxt& parser);

/// What the parser has against a document: lower case, without a line end behind it.
ParseError ParseErrorOf(const xmlError& error);

/// Makes the reason one line, whatever the document holds.
ParseError InOneLine(ParseError error);

/// The parser's calls for a Receiver, which is the context that the parser hands to each of them.
/// It has endElement(), characters(std::string_view) and parserError(const xmlError&); warnings are
/// left out. Elements start with a function of its own, for what it wants to know of them.
template <class Receiver>
xmlSAXHandler XmlHandlersFor(startElementNsSAX2Func startElement)
{
    const charactersSAXFunc characters = [](void* context, const xmlChar* text, int length) {
        static_cast<Receiver*>(context)->characters(std::string_view(
            reinterpret_cast<const char*>(text), static_cast<std::size_t>(length)));
    };
    xmlSAXHandler handlers = {};
    handlers.startElementNs = startElement;
    handlers.endElementNs = [](void* context, const xmlChar*, const xmlChar*, const xmlChar*) {
        static_cast<Receiver*>(context)->endElement();
    };
    handlers.characters = characters;
    handlers.cdataBlock = characters;
    handlers.ignorableWhitespace = characters;
    handlers.serror = [](void* context, xmlErrorPtr error) {
        if (error->level >= XML_ERR_ERROR) {
            static_cast<Receiver*>(context)->parserError(*error);
        }
    };
    handlers.initialized = XML_SAX2_MAGIC;
    return handlers;
}

} // namespace tarvo
