#pragma once

#include "platform/xml/XmlLimits.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tarvo {

/// The start of an element. Its texts are borrowed for the call that hands it over.
class XmlElement {
public:
    XmlElement(std::string_view name, std::size_t line, const void* attributes, std::size_t count)
        : name_(name), line_(line), attributes_(attributes), count_(count)
    {
    }
    /// Without its prefix, if that is declared; else with it.
    std::string_view name() const { return name_; }
    std::size_t line() const { return line_; }
    /// The first attribute with that name, whatever its prefix.
    std::optional<std::string_view> attribute(std::string_view name) const;

private:
    std::string_view name_;
    std::size_t line_;
    const void* attributes_; // as the parser has them
    std::size_t count_;
};

/// What takes a document element by element. Each call returns why the document is refused, or an
/// empty text to go on.
class XmlEvents {
public:
    XmlEvents() = default;
    XmlEvents(const XmlEvents&) = delete;
    XmlEvents& operator=(const XmlEvents&) = delete;
    virtual ~XmlEvents() = default;

    virtual std::string startElement(const XmlElement& element) = 0;
    virtual std::string endElement() = 0;
    /// A piece of a text, character data included; comments and instructions are left out.
    virtual void characters(std::string_view text) = 0;
};

/// Gives the next bytes of a document: fills as much as it likes of `size` bytes.
/// @return how many; 0 at the end; nullopt with the system's reason in `reason`
using XmlSource =
    std::function<std::optional<std::size_t>(char* bytes, std::size_t size, std::string& reason)>;

/// A document at hand, borrowed.
XmlSource XmlSourceOf(std::string_view xml);

// Different names, of elements, attributes, namespaces and instructions: a parser keeps each, and
// takes longer for each the more there are.
inline constexpr std::size_t XmlMaximumNames = 2048;
// Namespaces declared around one place: a parser walks them for each prefix.
inline constexpr std::size_t XmlMaximumNamespaces = 32;

/// Reads a document in pieces, each of which is within the limits before the parser sees it.
/// Nothing is fetched: an external part of the document type is left alone. What refers to it, an
/// entity, makes the document unreadable.
/// @return false with `error` filled when the document cannot be read or is refused; the events up
/// to there have been handed over
[[nodiscard]] bool ReadXml(const XmlSource& source, const XmlLimits& limits, XmlEvents& events,
                           ParseError& error);

} // namespace tarvo
