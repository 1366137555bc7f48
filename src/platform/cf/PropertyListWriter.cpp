#include "platform/cf/PropertyListWriter.h"

#include "platform/cf/PropertyListReader.h"
#include "platform/cf/PropertyListText.h"
#include "platform/text/Utf8.h"

#include <array>
#include <charconv>

namespace tarvo {
namespace {

constexpr std::string_view Prologue = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                      "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                                      "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                                      "<plist version=\"1.0\">\n";
constexpr std::string_view Epilogue = "</plist>\n";

// What writing takes for each byte of a text.
enum class ByteClass : std::uint8_t { Plain, Escaped, BeyondAscii, Forbidden };

constexpr std::array<ByteClass, 256> MakeByteClasses()
{
    std::array<ByteClass, 256> classes = {};
    for (std::size_t byte = 0; byte < 0x20; ++byte) {
        classes[byte] = ByteClass::Forbidden;
    }
    for (std::size_t byte = 0x80; byte < 0x100; ++byte) {
        classes[byte] = ByteClass::BeyondAscii;
    }
    classes['\t'] = classes['\n'] = ByteClass::Plain;
    classes['\r'] = classes['&'] = classes['<'] = classes['>'] = ByteClass::Escaped;
    return classes;
}

constexpr auto ByteClasses = MakeByteClasses();

ByteClass ClassOf(char byte)
{
    return ByteClasses[static_cast<unsigned char>(byte)];
}

std::string_view EscapeOf(char byte)
{
    switch (byte) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    default: // a bare carriage return would come back as a line feed
        return "&#13;";
    }
}

class PropertyListSerializer {
public:
    /// @param put  null: the text is kept whole
    explicit PropertyListSerializer(const PropertyListPut* put) : put_(put) {}

    bool write(const CFPropertyList& root)
    {
        text_ += Prologue;
        value(root);
        text_ += Epilogue;
        checkSize();
        if (put_ != nullptr) {
            flush();
        }
        return !isStopped();
    }

    std::string takeText() { return std::move(text_); }
    const ParseError& error() const { return error_; }

private:
    void fail(std::string reason)
    {
        if (error_.reason.empty()) {
            error_.reason = std::move(reason);
        }
    }

    bool isStopped() const { return isRefused_ || !error_.reason.empty(); }

    void checkSize()
    {
        if (flushed_ + text_.size() > PropertyListLimits.bytes) {
            fail("the property list would be larger than 64 MiB");
        }
    }

    void flush()
    {
        isRefused_ = isStopped() || !(*put_)(text_);
        flushed_ += text_.size();
        text_.clear();
    }

    // Lines stand as deep as their containers, the root's at the margin.
    void indent() { text_.append(open_, '\t'); }

    void value(const CFPropertyList& value)
    {
        if (++count_ > PropertyListMaximumValues) {
            fail("more than " + std::to_string(PropertyListMaximumValues) + " values");
        }
        constexpr std::size_t PieceSize = 64 * std::size_t{1024};
        if (put_ != nullptr && text_.size() >= PieceSize) {
            checkSize();
            flush();
        }
        if (isStopped()) {
            return;
        }
        indent();
        value.visit([this](const auto& typed) { write(typed); });
    }

    // The empty ones count as well.
    void checkDepth()
    {
        if (open_ == PropertyListMaximumDepth) {
            fail("values are nested deeper than " + std::to_string(PropertyListMaximumDepth));
        }
    }

    void line(std::string_view name, std::string_view content)
    {
        ((text_ += '<') += name) += '>';
        text_ += content;
        ((text_ += "</") += name) += ">\n";
    }

    void write(bool value) { text_ += value ? "<true/>\n" : "<false/>\n"; }
    void write(double value) { line("real", TextFromReal(value)); }

    void write(std::int64_t value)
    {
        std::array<char, 24> buffer;
        const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
        line("integer", {buffer.data(), result.ptr});
    }

    void write(const std::string& value)
    {
        text_ += "<string>";
        escaped(value);
        text_ += "</string>\n";
    }

    void write(const CFData& value)
    {
        constexpr std::size_t LineLength = 76;
        const std::string digits = Base64FromData(value);
        text_ += "<data>\n";
        for (std::size_t position = 0; position < digits.size(); position += LineLength) {
            indent();
            text_.append(digits, position, LineLength);
            text_ += '\n';
        }
        indent();
        text_ += "</data>\n";
    }

    void write(CFDate value)
    {
        const auto date = TextFromDate(value);
        if (!date) {
            fail("a date outside the years 1 to 9999");
        }
        line("date", date.value_or(""));
    }

    void write(const CFArray& array)
    {
        checkDepth();
        if (array.empty()) {
            text_ += "<array/>\n";
            return;
        }
        enter("<array>\n");
        for (const CFPropertyList& member : array) {
            value(member);
        }
        leave("</array>\n");
    }

    void write(const CFDictionary& dictionary)
    {
        checkDepth();
        if (dictionary.empty()) {
            text_ += "<dict/>\n";
            return;
        }
        enter("<dict>\n");
        for (const auto& [key, member] : dictionary) {
            indent();
            text_ += "<key>";
            escaped(key);
            text_ += "</key>\n";
            value(member);
        }
        leave("</dict>\n");
    }

    void enter(std::string_view tag)
    {
        text_ += tag;
        ++open_;
    }

    void leave(std::string_view tag)
    {
        --open_;
        indent();
        text_ += tag;
    }

    void escaped(std::string_view text)
    {
        bool beyondAscii = false;
        std::size_t plain = 0; // the beginning of what waits to be copied
        for (std::size_t position = 0; position < text.size(); ++position) {
            switch (ClassOf(text[position])) {
            case ByteClass::Plain:
                break;
            case ByteClass::BeyondAscii:
                beyondAscii = true;
                break;
            case ByteClass::Escaped:
                text_.append(text, plain, position - plain);
                text_ += EscapeOf(text[position]);
                plain = position + 1;
                break;
            case ByteClass::Forbidden:
                fail("a text holds a control character");
            }
        }
        text_.append(text, plain);
        if (beyondAscii) {
            checkCharacters(text);
        }
    }

    void checkCharacters(std::string_view text)
    {
        if (!IsUtf8(text)) {
            fail("a text is not UTF-8");
        }
        const auto npos = std::string_view::npos;
        if (text.find("\xEF\xBF\xBE") != npos || text.find("\xEF\xBF\xBF") != npos) {
            fail("a text holds U+FFFE or U+FFFF");
        }
    }

    const PropertyListPut* put_;
    std::string text_; // that has not been put
    std::size_t flushed_ = 0;
    bool isRefused_ = false;
    std::size_t open_ = 0;
    std::size_t count_ = 0;
    ParseError error_;
};

} // namespace

std::optional<std::string> WritePropertyList(const CFPropertyList& root, ParseError& error)
{
    PropertyListSerializer serializer(nullptr);
    if (!serializer.write(root)) {
        error = serializer.error();
        return std::nullopt;
    }
    return serializer.takeText();
}

bool WritePropertyList(const CFPropertyList& root, const PropertyListPut& put, ParseError& error)
{
    PropertyListSerializer serializer(&put);
    const bool isDone = serializer.write(root);
    error = serializer.error();
    return isDone;
}

} // namespace tarvo
