#include "platform/xml/XmlLimits.h"

#include "platform/text/Utf8.h"

#include <algorithm>

namespace tarvo {
namespace {

constexpr std::size_t End = std::string_view::npos;

std::size_t LineAt(std::string_view xml, std::size_t position)
{
    const auto last = xml.begin() + static_cast<std::ptrdiff_t>(std::min(position, xml.size()));
    return 1 + static_cast<std::size_t>(std::count(xml.begin(), last, '\n'));
}

// The position behind the next `mark`; the end of the text when it is missing.
std::size_t Behind(std::string_view xml, std::size_t position, std::string_view mark)
{
    const std::size_t found = xml.find(mark, position);
    return found == End ? xml.size() : found + mark.size();
}

// A walk over the markup. Each step takes one construct that begins with "<".
class MarkupWalk {
public:
    MarkupWalk(std::string_view xml, const XmlLimits& limits) : xml_(xml), limits_(limits) {}

    std::optional<ParseError> run()
    {
        while (!error_ && (position_ = xml_.find('<', position_)) != End) {
            step();
        }
        return error_;
    }

private:
    bool at(std::string_view mark) const { return xml_.compare(position_, mark.size(), mark) == 0; }

    void fail(std::string reason)
    {
        if (!error_) {
            error_ = ParseError{LineAt(xml_, position_), std::move(reason)};
        }
    }

    void step()
    {
        const char second = position_ + 1 < xml_.size() ? xml_[position_ + 1] : '\0';
        if (second == '/') {
            leaveElement();
            position_ = Behind(xml_, position_, ">");
        } else if (second == '?') {
            processingInstruction();
        } else if (second != '!') {
            startTag();
        } else if (at("<!--")) {
            position_ = Behind(xml_, position_ + 4, "-->");
        } else if (at("<![CDATA[")) {
            position_ = Behind(xml_, position_, "]]>");
        } else {
            documentType();
        }
    }

    void processingInstruction()
    {
        if (++processingInstructions_ > limits_.processingInstructions) {
            fail("more than " + std::to_string(limits_.processingInstructions) +
                 " processing instructions");
            return;
        }
        const std::size_t behind = Behind(xml_, position_ + 2, "?>");
        if (at("<?xml ") || at("<?xml\t") || at("<?xml\n") || at("<?xml\r")) {
            declaration(xml_.substr(position_, behind - position_));
        }
        position_ = behind;
    }

    void declaration(std::string_view text)
    {
        const std::size_t name = text.find("encoding");
        const std::size_t open = name == End ? End : text.find_first_of("\"'", name);
        if (open == End) {
            return;
        }
        const std::size_t close = text.find(text[open], open + 1);
        std::string encoding(text.substr(open + 1, close == End ? End : close - open - 1));
        std::transform(encoding.begin(), encoding.end(), encoding.begin(), [](char letter) {
            return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
        });
        if (encoding != "UTF-8" && encoding != "US-ASCII" && encoding != "ASCII") {
            fail("the encoding is not UTF-8");
        }
    }

    // Up to the ">" that ends the declaration, with its internal subset in brackets.
    void documentType()
    {
        std::size_t position = position_;
        bool inSubset = false;
        while (position < xml_.size()) {
            position = xml_.find_first_of("\"'[]<>", position + 1);
            if (position == End) {
                break;
            }
            switch (xml_[position]) {
            case '"':
            case '\'':
                position = std::min(xml_.find(xml_[position], position + 1), xml_.size());
                break;
            case '[':
                inSubset = true;
                break;
            case ']':
                inSubset = false;
                break;
            case '<':
                position = declarationInSubset(position);
                break;
            default:
                if (!inSubset) {
                    position_ = position + 1;
                    return;
                }
            }
        }
        position_ = xml_.size();
    }

    // @return the position of the declaration's last character that was looked at
    std::size_t declarationInSubset(std::size_t position)
    {
        position_ = position;
        if (at("<!--")) {
            return Behind(xml_, position + 4, "-->") - 1;
        }
        if (at("<?")) {
            return Behind(xml_, position + 2, "?>") - 1;
        }
        fail(at("<!ENTITY") ? "entities may not be declared"
                            : "declarations in the document type are not allowed");
        return position;
    }

    void leaveElement()
    {
        if (depth_ > 0) {
            --depth_;
        }
    }

    void startTag()
    {
        if (++depth_ > limits_.depth) {
            fail("elements are nested deeper than " + std::to_string(limits_.depth));
            return;
        }
        std::size_t attributes = 0;
        std::size_t position = position_ + 1;
        while (position < xml_.size() && xml_[position] != '>') {
            if (xml_[position] == '"' || xml_[position] == '\'') {
                if (++attributesInAll_ > limits_.attributesInAll) {
                    fail("more than " + std::to_string(limits_.attributesInAll) + " attributes");
                    return;
                }
                if (++attributes > limits_.attributes) {
                    fail("an element has more than " + std::to_string(limits_.attributes) +
                         " attributes");
                    return;
                }
                position = std::min(xml_.find(xml_[position], position + 1), xml_.size() - 1);
            }
            ++position;
        }
        if (position < xml_.size() && xml_[position - 1] == '/') {
            leaveElement();
        }
        position_ = std::min(position + 1, xml_.size());
    }

    std::string_view xml_;
    const XmlLimits& limits_;
    std::size_t position_ = 0;
    std::size_t depth_ = 0;
    std::size_t attributesInAll_ = 0;
    std::size_t processingInstructions_ = 0;
    std::optional<ParseError> error_;
};

bool StartsAsUtf16(std::string_view xml)
{
    return xml.starts_with("\xFE\xFF") || xml.starts_with("\xFF\xFE");
}

// A parser guesses at encodings when the first character is no "<".
bool StartsAsMarkup(std::string_view xml)
{
    if (xml.starts_with("\xEF\xBB\xBF")) {
        xml.remove_prefix(3);
    }
    const std::size_t first = xml.find_first_not_of(" \t\r\n");
    return first != End && xml[first] == '<';
}

} // namespace

std::optional<ParseError> CheckXmlLimits(std::string_view xml, const XmlLimits& limits)
{
    if (xml.size() > limits.bytes) {
        constexpr std::size_t Mebibyte = std::size_t{1024} * 1024;
        return ParseError{0, "larger than " + std::to_string(limits.bytes / Mebibyte) + " MiB"};
    }
    if (StartsAsUtf16(xml)) {
        return ParseError{1, "the encoding is not UTF-8"};
    }
    if (xml.starts_with("bplist")) {
        return ParseError{0, "a binary property list, not XML"};
    }
    if (const std::size_t nul = xml.find('\0'); nul != End) {
        return ParseError{LineAt(xml, nul), "a NUL character"};
    }
    if (const std::size_t valid = ValidUtf8Prefix(xml).size(); valid != xml.size()) {
        return ParseError{LineAt(xml, valid), "not UTF-8"};
    }
    if (!StartsAsMarkup(xml)) {
        return ParseError{1, xml.empty() ? "empty" : "not an XML document"};
    }
    return MarkupWalk(xml, limits).run();
}

} // namespace tarvo
