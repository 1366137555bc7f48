#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvo {

// Kinds of values, numbered as in the messages.
enum class IppTag : std::uint8_t {
    Unsupported = 0x10,
    LastWithoutValue = 0x1F,
    Integer = 0x21,
    Boolean = 0x22,
    Enum = 0x23,
    Range = 0x33,
    TextWithLanguage = 0x35,
    NameWithLanguage = 0x36,
    Text = 0x41,
    Name = 0x42,
    Keyword = 0x44,
    Uri = 0x45,
    Charset = 0x47,
    NaturalLanguage = 0x48,
    MimeMediaType = 0x49,
};

/// A request with operation attributes alone, ready to be sent.
class IppRequest {
public:
    IppRequest(std::uint16_t operation, std::int32_t identifier);
    void add(IppTag tag, std::string_view name, std::string_view value);
    /// The whole message; nothing may be added to it any more.
    std::string bytes() &&;

private:
    std::string bytes_;
};

/// Takes the values of collections one by one. A text stays in the reply's bytes.
class IppCollectionReader {
public:
    virtual ~IppCollectionReader() = default;
    /// @param depth  1 for a value of the attribute, 2 for a collection that is a member of it
    /// @param name   of the member that holds the collection, "" at depth 1
    virtual void beginCollection(std::size_t depth, std::string_view name) = 0;
    /// The first value of a member that is no collection.
    virtual void member(std::size_t depth, std::string_view name, IppTag tag,
                        std::string_view value) = 0;
    virtual void endCollection(std::size_t depth) = 0;
};

/// How deep collections may lie in each other; media have two levels.
inline constexpr std::size_t IppDeepestNesting = 10;

/// Walks over a whole reply and tells the reader of every value of its first attribute that holds
/// collections, whatever that attribute's name is. Takes time in proportion to the bytes, and no
/// memory. libcups' own reader takes a second to read or drop 60,000 different texts, with its lock
/// held, and has no limit on the nesting of collections, which it walks on the stack.
/// @param reader  null to find out whether there is a fault before anything is built
/// @return "" when the reply is well-formed and answers that request; else why it is refused
std::string ReadIppReply(std::string_view reply, std::int32_t request, IppCollectionReader* reader);

/// The status of a reply that ReadIppReply takes.
std::uint16_t IppStatus(std::string_view reply);

/// The last status that means that the printer did what it was asked.
inline constexpr std::uint16_t IppLastSuccess = 0x00FF;

/// Any value in one line for people: texts as they are, numbers, "true", "1-5"; what else there is
/// as the number of its kind and of its bytes.
std::string IppValueText(IppTag tag, std::string_view value);

/// @return nullopt when it is no number
std::optional<std::int32_t> IppInteger(IppTag tag, std::string_view value);

/// A value of any kind of text without its language: UTF-8 in one line, of at most 1,023 bytes as
/// IPP allows. What is no UTF-8 becomes U+FFFD, a control character a space.
/// @return nullopt when it is no text
std::optional<std::string> IppText(IppTag tag, std::string_view value);

} // namespace tarvo
