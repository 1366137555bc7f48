#include "platform/cf/PropertyListReader.h"

#include "platform/cf/PropertyListText.h"
#include "platform/text/Utf8.h"
#include "platform/xml/XmlParser.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace tarvo {
namespace {

enum class Element {
    None,
    Plist,
    Key,
    Dict,
    Array,
    String,
    Integer,
    Real,
    Date,
    Data,
    True,
    False
};

constexpr std::array<std::pair<std::string_view, Element>, 11> ElementNames = {
    {
     {"key", Element::Key},
     {"string", Element::String},
     {"integer", Element::Integer},
     {"dict", Element::Dict},
     {"array", Element::Array},
     {"real", Element::Real},
     {"true", Element::True},
     {"false", Element::False},
     {"date", Element::Date},
     {"data", Element::Data},
     {"plist", Element::Plist},
     }
};

std::string_view NameOfElement(Element wanted)
{
    for (const auto& [text, element] : ElementNames) {
        if (element == wanted) {
            return text;
        }
    }
    return "";
}

std::string TextOf(const unsigned char* text)
{
    return reinterpret_cast<const char*>(text);
}

bool IsWhiteSpace(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char letter) {
        return letter == ' ' || letter == '\n' || letter == '\t' || letter == '\r';
    });
}

// Builds the values from the parser's events. The first error stops the parser.
class PropertyListBuilder final : public XmlReceiver {
public:
    /// @param xml  within the limits of a property list
    PropertyListBuilder(std::string_view xml, bool wantsPlaces)
        : parser_(*this, xml), wantsPlaces_(wantsPlaces)
    {
        if (!parser_.isMade()) {
            error_ = ParseError{0, "no memory for the parser"};
            return;
        }
        for (std::size_t index = 0; index < ElementNames.size(); ++index) {
            internedNames_[index] = parser_.nameOf(ElementNames[index].first);
        }
    }

    /// @return whether the list is complete; else error() says why not
    bool run();

    void startElement(const XmlStart& start) override;
    void endElement() override;
    void characters(std::string_view text) override;
    void parserError(ParseError error, bool /*isOfNamespaces*/) override { fail(std::move(error)); }

    std::optional<CFPropertyList> takeRoot() { return std::move(root_); }
    PropertyListPlace takePlace() { return std::move(place_); }
    const ParseError& error() const { return *error_; }

private:
    // A dictionary or an array that is open.
    struct Container {
        bool isDictionary = false;
        bool hasKey = false;        // of a dictionary; its value is still to come
        std::size_t firstEntry = 0; // of a dictionary, in entries_
        CFArray array;
        std::vector<PropertyListPlace> places; // of the members; empty when nobody wants them
    };

    /// @param name  as the parser hands it out
    void startElement(const unsigned char* name);
    void fail(ParseError error);
    void fail(std::string reason) { fail(ParseError{parser_.line(), std::move(reason)}); }
    Element elementOfName(const unsigned char* name) const;
    std::string refusal(Element element, const unsigned char* name) const;
    void endContainer();
    void endScalar(Element element);
    template <typename Type>
    void addParsed(Element element, std::optional<Type> value);
    void add(CFPropertyList&& value, std::vector<PropertyListPlace>&& inside = {});
    void beginPlace(Element element);

    XmlParser parser_;
    bool wantsPlaces_;
    // The parser hands out one pointer for equal names: comparing pointers is enough.
    std::array<const unsigned char*, ElementNames.size()> internedNames_ = {};
    bool inPlist_ = false;
    bool seenPlist_ = false;
    Element leaf_ = Element::None; // the open element that holds text
    std::string text_;
    std::vector<Container> open_;
    // Of the open dictionaries, the innermost one's last: a dictionary that ends takes its own in
    // one allocation of the right size.
    std::vector<CFDictionary::Entry> entries_;
    std::size_t count_ = 0;
    std::optional<CFPropertyList> root_;
    PropertyListPlace place_; // of the root
    std::optional<ParseError> error_;
};

bool PropertyListBuilder::run()
{
    if (!error_ && (!parser_.parse() || !root_) && !error_) {
        error_ = ParseError{0, "not a complete XML document"};
    }
    return !error_;
}

void PropertyListBuilder::startElement(const XmlStart& start)
{
    // The parser walks all that are declared for every prefix it meets.
    if (start.namespaces != 0) {
        fail("a namespace is declared");
        return;
    }
    if (start.prefix != nullptr) {
        fail("unknown element \"" + TextOf(start.prefix) + ":" + TextOf(start.name) + "\"");
        return;
    }
    startElement(start.name);
}

void PropertyListBuilder::fail(ParseError error)
{
    if (!error_) {
        error_ = InOneLine(std::move(error));
        parser_.stop();
    }
}

Element PropertyListBuilder::elementOfName(const unsigned char* name) const
{
    const auto found = std::find(internedNames_.begin(), internedNames_.end(), name);
    return found == internedNames_.end()
               ? Element::None
               : ElementNames[static_cast<std::size_t>(found - internedNames_.begin())].second;
}

void PropertyListBuilder::startElement(const unsigned char* name)
{
    const Element element = elementOfName(name);
    if (std::string reason = refusal(element, name); !reason.empty()) {
        fail(std::move(reason));
        return;
    }
    beginPlace(element);
    switch (element) {
    case Element::Plist:
        inPlist_ = seenPlist_ = true;
        break;
    case Element::Dict:
    case Element::Array:
        if (open_.size() == PropertyListMaximumDepth) {
            fail("values are nested deeper than " + std::to_string(PropertyListMaximumDepth));
            return;
        }
        open_.push_back({element == Element::Dict, false, entries_.size(), {}, {}});
        break;
    default:
        leaf_ = element;
        text_.clear();
    }
}

// Notes where the next value of the open container, or the root, begins: at its key, if it has one.
void PropertyListBuilder::beginPlace(Element element)
{
    const bool isBehindKey = !open_.empty() && open_.back().hasKey;
    if (!wantsPlaces_ || element == Element::Plist || isBehindKey) {
        return;
    }
    auto* places = open_.empty() ? nullptr : &open_.back().places;
    (places == nullptr ? place_ : places->emplace_back()).line = parser_.line();
}

// Why the element may not stand here; empty when it may.
std::string PropertyListBuilder::refusal(Element element, const unsigned char* name) const
{
    if (element == Element::None) {
        return "unknown element \"" + TextOf(name) + "\"";
    }
    if (leaf_ != Element::None) {
        return "element \"" + TextOf(name) + "\" inside a text";
    }
    if (element == Element::Plist) {
        return seenPlist_ ? "element \"plist\" inside a property list" : "";
    }
    if (!inPlist_) {
        return "the root element is not \"plist\"";
    }
    const bool inDictionary = !open_.empty() && open_.back().isDictionary;
    if (element == Element::Key && !inDictionary) {
        return "a key outside a dictionary";
    }
    if (element == Element::Key && open_.back().hasKey) {
        return "key \"" + entries_.back().key + "\" has no value";
    }
    if (element != Element::Key && inDictionary && !open_.back().hasKey) {
        return "a value without a key";
    }
    return open_.empty() && root_ ? "a second root value" : "";
}

void PropertyListBuilder::characters(std::string_view text)
{
    if (leaf_ == Element::None || leaf_ == Element::True || leaf_ == Element::False) {
        if (!IsWhiteSpace(text)) {
            fail("text outside a value");
        }
        return;
    }
    text_ += text;
}

void PropertyListBuilder::endElement()
{
    if (error_) {
        return;
    }
    const Element leaf = std::exchange(leaf_, Element::None);
    if (leaf == Element::Key) {
        entries_.push_back({text_, false});
        open_.back().hasKey = true;
    } else if (leaf != Element::None) {
        endScalar(leaf);
    } else if (!open_.empty()) {
        endContainer();
    } else {
        inPlist_ = false;
        if (!root_) {
            fail("no value in the property list");
        }
    }
}

void PropertyListBuilder::endContainer()
{
    if (open_.back().hasKey) {
        fail("key \"" + entries_.back().key + "\" has no value");
        return;
    }
    Container container = std::move(open_.back());
    open_.pop_back();
    if (!container.isDictionary) {
        add(std::move(container.array), std::move(container.places));
        return;
    }
    const auto first = entries_.begin() + static_cast<std::ptrdiff_t>(container.firstEntry);
    CFDictionary dictionary;
    const auto twice = dictionary.assign(
        {std::make_move_iterator(first), std::make_move_iterator(entries_.end())});
    if (twice) {
        fail("key \"" + *twice + "\" appears twice");
    }
    entries_.erase(first, entries_.end());
    add(std::move(dictionary), std::move(container.places));
}

void PropertyListBuilder::endScalar(Element element)
{
    switch (element) {
    case Element::String:
        add(text_);
        break;
    case Element::Integer:
        addParsed(element, IntegerFromText(text_));
        break;
    case Element::Real:
        addParsed(element, RealFromText(text_));
        break;
    case Element::Date:
        addParsed(element, DateFromText(text_));
        break;
    case Element::Data:
        addParsed(element, DataFromBase64(text_));
        break;
    default:
        add(element == Element::True);
    }
}

template <typename Type>
void PropertyListBuilder::addParsed(Element element, std::optional<Type> value)
{
    if (value) {
        add(std::move(*value));
        return;
    }
    constexpr std::size_t Shown = 40;
    const std::string_view shown = Utf8Prefix(text_, Shown);
    fail("bad " + std::string(NameOfElement(element)) + " \"" + std::string(shown) +
         (shown.size() < text_.size() ? "...\"" : "\""));
}

void PropertyListBuilder::add(CFPropertyList&& value, std::vector<PropertyListPlace>&& inside)
{
    if (++count_ > PropertyListMaximumValues) {
        fail("more than " + std::to_string(PropertyListMaximumValues) + " values");
        return;
    }
    if (open_.empty()) {
        root_ = std::move(value);
        place_.inside = std::move(inside);
        return;
    }
    Container& container = open_.back();
    if (!inside.empty()) {
        container.places.back().inside = std::move(inside);
    }
    if (!container.isDictionary) {
        container.array.push_back(std::move(value));
        return;
    }
    entries_.back().value = std::move(value);
    container.hasKey = false;
}

} // namespace

std::optional<CFPropertyList> ReadPropertyList(std::string_view xml, ParseError& error,
                                               PropertyListPlace* place)
{
    if (auto broken = CheckXmlLimits(xml, PropertyListLimits)) {
        error = std::move(*broken);
        return std::nullopt;
    }
    PropertyListBuilder builder(xml, place != nullptr);
    if (!builder.run()) {
        error = builder.error();
        return std::nullopt;
    }
    if (place != nullptr) {
        *place = builder.takePlace();
    }
    return builder.takeRoot();
}

std::optional<CFDictionary> ReadPropertyListDictionary(std::string_view xml, ParseError& error,
                                                       PropertyListPlace* place)
{
    auto root = ReadPropertyList(xml, error, place);
    if (!root) {
        return std::nullopt;
    }
    auto* dictionary = root->get<CFDictionary>();
    if (dictionary == nullptr) {
        error =
            ParseError{0, std::string("the root is no dictionary but of kind ") + root->kindName()};
        return std::nullopt;
    }
    return std::move(*dictionary);
}

} // namespace tarvo
