#pragma once

#include "platform/xml/XmlLimits.h"

#include <cstddef>
#include <memory>
#include <string_view>

namespace tarvo {

/// The start of an element, as the parser has it: its texts are UTF-8 and borrowed for the call.
struct XmlStart {
    const unsigned char* name; // one pointer for equal names; without the prefix
    const unsigned char* prefix;
    bool isDeclared; // the prefix
    int namespaces;  // that the element declares
    int attributeCount;
    const unsigned char* const* attributes; // five pointers each
};

/// What takes a parser's events.
class XmlReceiver {
public:
    XmlReceiver() = default;
    XmlReceiver(const XmlReceiver&) = delete;
    XmlReceiver& operator=(const XmlReceiver&) = delete;
    virtual ~XmlReceiver() = default;

    virtual void startElement(const XmlStart& start) = 0;
    virtual void endElement() = 0;
    /// A piece of a text, character data included.
    virtual void characters(std::string_view text) = 0;
    /// What is wrong with the document; not what the parser only warns of.
    /// @param isOfNamespaces  it could be read if it had no namespaces
    virtual void parserError(ParseError error, bool isOfNamespaces) = 0;
};

/// The library's parser, made for one document. Nothing is fetched; limits of our own, which the
/// document must keep before, stand in place of the library's, which are narrower.
class XmlParser {
public:
    /// Fills as much as it likes of the bytes. @return how many; 0 at the end, -1 to give up
    using Read = int (*)(void* context, char* bytes, int size);

    /// @param xml  less than 2 GiB, borrowed
    XmlParser(XmlReceiver& receiver, std::string_view xml);
    /// @param context  of the read function
    XmlParser(XmlReceiver& receiver, Read read, void* context);

    /// @return false when there was no memory for the parser, which has no other use then
    bool isMade() const { return parser_ != nullptr; }
    /// Reads the document. @return whether it is well-formed
    bool parse();
    /// Takes no more of the document; not while it waits for bytes.
    void stop();
    /// Where it is, from 1.
    std::size_t line() const;
    /// How many different names it has met.
    int nameCount() const;
    /// The pointer that elements of that name will have.
    const unsigned char* nameOf(std::string_view name);

private:
    std::shared_ptr<void> parser_; // the library's
};

/// Makes the reason one line, whatever the document holds.
ParseError InOneLine(ParseError error);

} // namespace tarvo
