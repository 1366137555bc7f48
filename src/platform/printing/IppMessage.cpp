#include "platform/printing/IppMessage.h"

#include "platform/text/Utf8.h"

#include <glib.h>

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

namespace tarvo {
namespace {

// Marks among the values.
constexpr std::uint8_t OperationGroup = 0x01;
constexpr std::uint8_t EndOfAttributes = 0x03;
constexpr std::uint8_t LastGroup = 0x0F;
constexpr std::uint8_t BeginCollection = 0x34;
constexpr std::uint8_t EndCollection = 0x37;
constexpr std::uint8_t MemberName = 0x4A;

constexpr std::size_t HeaderLength = 8; // version, status, number of the request
constexpr std::size_t LongestString = 32767;
constexpr std::size_t LongestText = 1023;

std::uint32_t Number(std::string_view bytes)
{
    std::uint32_t number = 0;
    for (const char byte : bytes) {
        number = number << 8 | static_cast<unsigned char>(byte);
    }
    return number;
}

void AppendNumber(std::string& bytes, std::uint32_t number, int length)
{
    for (int shift = 8 * (length - 1); shift >= 0; shift -= 8) {
        bytes += static_cast<char>(number >> shift & 0xFF);
    }
}

void AppendString(std::string& bytes, std::string_view text)
{
    text = text.substr(0, LongestString);
    AppendNumber(bytes, static_cast<std::uint32_t>(text.size()), 2);
    bytes += text;
}

// A walk over the attributes of a reply. It stops at the first fault.
class ReplyWalk {
public:
    ReplyWalk(std::string_view reply, IppCollectionReader* reader) : rest_(reply), reader_(reader)
    {
    }

    std::string run(std::int32_t request)
    {
        header(request);
        while (fault_.empty() && !isAtEnd_) {
            step();
        }
        return std::move(fault_);
    }

private:
    // What has been told of a collection: the member at work and whether its first value came.
    struct Level {
        std::string_view name;
        bool hasValue = false;
    };

    void fail(const char* fault)
    {
        if (fault_.empty()) {
            fault_ = fault;
        }
    }

    std::string_view take(std::size_t length)
    {
        if (length > rest_.size()) {
            fail("the answer is cut short");
            length = 0;
        }
        const std::string_view taken = rest_.substr(0, length);
        rest_.remove_prefix(length);
        return taken;
    }

    std::string_view takeString()
    {
        const std::size_t length = Number(take(2));
        if (length > LongestString) {
            fail("a text is longer than 32,767 bytes");
            return {};
        }
        return take(length);
    }

    void header(std::int32_t request)
    {
        const std::string_view head = take(HeaderLength);
        if (!fault_.empty() || (head[0] != 1 && head[0] != 2)) {
            fault_ = "what the printer answered is not IPP";
        } else if (Number(head.substr(4)) != static_cast<std::uint32_t>(request)) {
            fail("the printer answered another request");
        }
    }

    void step()
    {
        const auto tag = static_cast<std::uint8_t>(Number(take(1)));
        if (tag <= LastGroup) {
            group(tag);
            return;
        }
        const std::string_view name = takeString();
        const std::string_view value = takeString();
        if (!fault_.empty()) {
            return;
        }
        if (depth_ > 0) {
            collectionStep(tag, name, value);
        } else {
            attribute(tag, name);
        }
    }

    void group(std::uint8_t tag)
    {
        if (depth_ > 0) {
            fail("a collection is not closed");
        } else if (tag == 0) {
            fail("what the printer answered is not IPP");
        }
        isAtEnd_ = tag == EndOfAttributes;
        hasAttribute_ = false;
        leaveAttribute();
    }

    // A value outside of collections; without a name it belongs to the attribute before.
    void attribute(std::uint8_t tag, std::string_view name)
    {
        if (!name.empty()) {
            hasAttribute_ = true;
            leaveAttribute();
        }
        if (!hasAttribute_ || tag == MemberName || tag == EndCollection) {
            fail("a value belongs to no attribute");
        } else if (tag == BeginCollection) {
            if (place_ == Place::Before) {
                place_ = Place::Within;
            }
            begin("");
        }
    }

    void leaveAttribute()
    {
        if (place_ == Place::Within) {
            place_ = Place::Behind;
        }
    }

    void collectionStep(std::uint8_t tag, std::string_view name, std::string_view value)
    {
        Level& level = levels_[depth_];
        if (!name.empty() || (tag == MemberName && value.empty())) {
            fail("a member of a collection is named wrongly");
        } else if (tag == MemberName) {
            level = {value, false};
        } else if (tag == EndCollection) {
            if (reader() != nullptr) {
                reader()->endCollection(depth_);
            }
            --depth_;
        } else if (level.name.empty()) {
            fail("a value belongs to no member");
        } else {
            const bool isFirst = !std::exchange(level.hasValue, true);
            memberValue(tag, level.name, value, isFirst);
        }
    }

    void memberValue(std::uint8_t tag, std::string_view name, std::string_view value, bool isFirst)
    {
        if (tag == BeginCollection) {
            begin(name);
        } else if (isFirst && reader() != nullptr) {
            reader()->member(depth_, name, static_cast<IppTag>(tag), value);
        }
    }

    void begin(std::string_view name)
    {
        if (depth_ == IppDeepestNesting) {
            fail("collections are nested too deep");
            return;
        }
        levels_[++depth_] = {};
        if (reader() != nullptr) {
            reader()->beginCollection(depth_, name);
        }
    }

    // Null outside of the attribute that is told.
    IppCollectionReader* reader() const { return place_ == Place::Within ? reader_ : nullptr; }

    // Where the walk is: before, within or behind the first attribute that holds collections.
    enum class Place { Before, Within, Behind };

    std::string_view rest_;
    IppCollectionReader* reader_;
    std::string fault_;
    Place place_ = Place::Before;
    bool isAtEnd_ = false;
    bool hasAttribute_ = false;
    std::size_t depth_ = 0;
    std::array<Level, IppDeepestNesting + 1> levels_; // the first is not used
};

// The text behind its language; nullopt when the lengths do not fit.
std::optional<std::string_view> WithoutLanguage(std::string_view value)
{
    for (const bool isLanguage : {true, false}) {
        if (value.size() < 2) {
            return std::nullopt;
        }
        const std::size_t length = Number(value.substr(0, 2));
        value.remove_prefix(2);
        if (length > value.size() || (!isLanguage && length != value.size())) {
            return std::nullopt;
        }
        value = value.substr(isLanguage ? length : 0);
    }
    return value;
}

} // namespace

IppRequest::IppRequest(std::uint16_t operation, std::int32_t identifier)
{
    AppendNumber(bytes_, 0x0200, 2);
    AppendNumber(bytes_, operation, 2);
    AppendNumber(bytes_, static_cast<std::uint32_t>(identifier), 4);
    bytes_ += static_cast<char>(OperationGroup);
}

void IppRequest::add(IppTag tag, std::string_view name, std::string_view value)
{
    bytes_ += static_cast<char>(tag);
    AppendString(bytes_, name);
    AppendString(bytes_, value);
}

std::string IppRequest::bytes() &&
{
    bytes_ += static_cast<char>(EndOfAttributes);
    return std::move(bytes_);
}

std::string ReadIppReply(std::string_view reply, std::int32_t request, IppCollectionReader* reader)
{
    return ReplyWalk(reply, reader).run(request);
}

std::uint16_t IppStatus(std::string_view reply)
{
    return static_cast<std::uint16_t>(Number(reply.substr(2, 2)));
}

std::string IppValueText(IppTag tag, std::string_view value)
{
    const auto number = [value](std::size_t start) {
        return std::to_string(static_cast<std::int32_t>(Number(value.substr(start, 4))));
    };
    if (const auto text = IppText(tag, value)) {
        return *text;
    }
    if ((tag == IppTag::Integer || tag == IppTag::Enum) && value.size() == 4) {
        return number(0);
    }
    if (tag == IppTag::Range && value.size() == 8) {
        return number(0) + '-' + number(4);
    }
    if (tag == IppTag::Boolean && value.size() == 1) {
        return value[0] == 0 ? "false" : "true";
    }
    if (tag >= IppTag::Unsupported && tag <= IppTag::LastWithoutValue) {
        return "(no value)";
    }
    return "(kind " + std::to_string(static_cast<int>(tag)) + ", " + std::to_string(value.size()) +
           " bytes)";
}

std::optional<std::int32_t> IppInteger(IppTag tag, std::string_view value)
{
    if (tag != IppTag::Integer || value.size() != 4) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(Number(value));
}

std::optional<std::string> IppText(IppTag tag, std::string_view value)
{
    if (tag == IppTag::TextWithLanguage || tag == IppTag::NameWithLanguage) {
        const auto text = WithoutLanguage(value);
        return text ? IppText(IppTag::Text, *text) : std::nullopt;
    }
    if (tag < IppTag::Text || tag > IppTag::MimeMediaType) {
        return std::nullopt;
    }
    value = Utf8Prefix(value, LongestText);
    std::string text(value);
    if (!IsUtf8(text)) {
        const std::unique_ptr<char, decltype(&g_free)> valid(
            g_utf8_make_valid(value.data(), static_cast<gssize>(value.size())), g_free);
        text = Utf8Prefix(valid.get(), LongestText);
    }
    std::replace_if(
        text.begin(), text.end(),
        [](char letter) { return (letter >= 0 && letter < ' ') || letter == 0x7F; }, ' ');
    return text;
}

} // namespace tarvo
