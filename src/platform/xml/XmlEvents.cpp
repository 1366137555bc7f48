#include "platform/xml/XmlEvents.h"

#include "platform/xml/XmlParser.h"

#include <vector>

namespace tarvo {
namespace {

std::string_view ViewOf(const unsigned char* text)
{
    return reinterpret_cast<const char*>(text);
}

// One reading: the source, checked on its way to the parser, and the parser's events on their way
// to who wants them. The first error stops the parser.
class XmlReading final : public XmlReceiver {
public:
    XmlReading(const XmlSource& source, const XmlLimits& limits, XmlEvents& events)
        : source_(source), walk_(limits), events_(events), parser_(*this, ReadBytes, this)
    {
    }

    bool run();
    const ParseError& error() const { return *error_; }

    void startElement(const XmlStart& start) override;
    void endElement() override;
    void characters(std::string_view text) override { events_.characters(text); }
    void parserError(ParseError error, bool isOfNamespaces) override;

private:
    static int ReadBytes(void* reading, char* bytes, int size)
    {
        return static_cast<XmlReading*>(reading)->read(bytes, static_cast<std::size_t>(size));
    }
    int read(char* bytes, std::size_t size);
    void refuse(std::string reason)
    {
        if (!reason.empty()) {
            fail({parser_.line(), std::move(reason)});
        }
    }
    void fail(ParseError error);
    void note(ParseError error);

    const XmlSource& source_;
    XmlLimitsWalk walk_;
    XmlEvents& events_;
    std::optional<ParseError> error_;
    bool isAtEnd_ = false;
    std::vector<int> namespaces_; // that each open element declares
    int namespacesInAll_ = 0;
    std::string prefixed_;
    XmlParser parser_; // reads with what stands above
};

bool XmlReading::run()
{
    if (!parser_.isMade()) {
        note(ParseError{0, "no memory for the parser"});
        return false;
    }
    if (!parser_.parse() && !error_) {
        note(ParseError{0, "not a complete XML document"});
    }
    return !error_;
}

// Fills all that the parser has room for: it takes less for the end of what it looks for, were it
// in the middle of a mark.
int XmlReading::read(char* bytes, std::size_t size)
{
    std::size_t filled = 0;
    while (!error_ && !isAtEnd_ && filled < size) {
        std::string reason;
        const auto got = source_(bytes + filled, size - filled, reason);
        if (!got) {
            note(ParseError{0, "cannot read: " + reason});
            break;
        }
        isAtEnd_ = *got == 0;
        if (!(isAtEnd_ ? walk_.end() : walk_.take({bytes + filled, *got}))) {
            note(*walk_.error());
        }
        filled += *got;
    }
    return error_ ? -1 : static_cast<int>(filled);
}

void XmlReading::startElement(const XmlStart& start)
{
    if (error_) {
        return;
    }
    namespaces_.push_back(start.namespaces);
    namespacesInAll_ += start.namespaces;
    if (namespacesInAll_ > static_cast<int>(XmlMaximumNamespaces)) {
        refuse("more than " + std::to_string(XmlMaximumNamespaces) + " namespaces in one place");
        return;
    }
    if (parser_.nameCount() > static_cast<int>(XmlMaximumNames)) {
        refuse("more than " + std::to_string(XmlMaximumNames) + " different names");
        return;
    }
    std::string_view shown = ViewOf(start.name);
    if (start.prefix != nullptr && !start.isDeclared) {
        prefixed_.assign(ViewOf(start.prefix)).append(":").append(shown);
        shown = prefixed_;
    }
    refuse(events_.startElement(XmlElement(shown, parser_.line(), start.attributes,
                                           static_cast<std::size_t>(start.attributeCount))));
}

void XmlReading::endElement()
{
    if (error_) {
        return;
    }
    namespacesInAll_ -= namespaces_.back();
    namespaces_.pop_back();
    refuse(events_.endElement());
}

void XmlReading::parserError(ParseError error, bool isOfNamespaces)
{
    if (!isOfNamespaces) { // an undeclared prefix is part of the name
        fail(std::move(error));
    }
}

// Not while the parser waits for bytes: stopping it would take away what it reads them into.
void XmlReading::fail(ParseError error)
{
    if (!error_) {
        note(std::move(error));
        parser_.stop();
    }
}

void XmlReading::note(ParseError error)
{
    if (!error_) {
        error_ = InOneLine(std::move(error));
    }
}

} // namespace

// The parser has five pointers for each attribute: name, prefix, namespace, begin and end of the
// value.
std::optional<std::string_view> XmlElement::attribute(std::string_view name) const
{
    const auto* fields = static_cast<const unsigned char* const*>(attributes_);
    for (std::size_t index = 0; index < count_; ++index, fields += 5) {
        if (name == ViewOf(fields[0])) {
            return std::string_view(reinterpret_cast<const char*>(fields[3]),
                                    static_cast<std::size_t>(fields[4] - fields[3]));
        }
    }
    return std::nullopt;
}

XmlSource XmlSourceOf(std::string_view xml)
{
    return [xml](char* bytes, std::size_t size, std::string&) mutable {
        const std::size_t count = xml.copy(bytes, size);
        xml.remove_prefix(count);
        return std::optional(count);
    };
}

bool ReadXml(const XmlSource& source, const XmlLimits& limits, XmlEvents& events, ParseError& error)
{
    XmlReading reading(source, limits, events);
    if (!reading.run()) {
        error = reading.error();
        return false;
    }
    return true;
}

} // namespace tarvo
