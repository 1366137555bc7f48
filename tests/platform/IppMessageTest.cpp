#include "platform/printing/IppMessage.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

using namespace std::string_literals;

std::string Value(int tag, const std::string& name, const std::string& value)
{
    const auto text = [](const std::string& bytes) {
        return std::string{static_cast<char>(bytes.size() >> 8),
                           static_cast<char>(bytes.size() & 0xFF)} +
               bytes;
    };
    return static_cast<char>(tag) + text(name) + text(value);
}

std::string Begin(const std::string& name)
{
    return Value(0x34, name, "");
}
std::string Member(const std::string& name)
{
    return Value(0x4A, "", name);
}
const std::string End = Value(0x37, "", "");
const std::string Head = "\2\0\0\0\0\0\0\7\4"s; // version, status, request 7, a printer's group
const std::string Tail = "\3";

std::string Nested(std::size_t depth)
{
    std::string bytes = Begin("a");
    for (std::size_t level = 1; level < depth; ++level) {
        bytes += Member("m") + Begin("");
    }
    for (std::size_t level = 0; level < depth; ++level) {
        bytes += End;
    }
    return bytes;
}

// Writes down what it is told, collections in brackets.
class Telling : public IppCollectionReader {
public:
    void beginCollection(std::size_t depth, std::string_view name) override
    {
        text.append(name).append(std::to_string(depth)).append("[");
    }
    void member(std::size_t, std::string_view name, IppTag, std::string_view value) override
    {
        text.append(name).append("=").append(value).append(" ");
    }
    void endCollection(std::size_t) override { text += "]"; }

    std::string text;
};

TEST(IppReply, TellsTheFirstAttributeThatHoldsCollections)
{
    const std::string other = Begin("other") + Member("o") + Value(0x44, "", "o") + End;
    // clang-format off
    const struct {
        const char* name;
        std::string attributes;
        const char* told;
    } cases[] = {
        {"none",                 Value(0x44, "key", "word"), ""},
        {"empty collections",    Begin("a") + End + Begin("") + End, "1[]1[]"},
        {"behind an attribute",  Value(0x44, "k", "w") + Value(0x44, "", "w2") + Begin("a") + End, "1[]"},
        {"the first alone",      Begin("a") + End + other, "1[]"},
        {"over groups",          Begin("a") + End + "\2"s + other, "1[]"},
        {"first values",         Begin("a") + Member("m") + Value(0x44, "", "1") + Value(0x44, "", "2")
                                     + Member("n") + Value(0x44, "", "3") + End, "1[m=1 n=3 ]"},
        {"a collection within",  Begin("a") + Member("s") + Begin("") + Member("x")
                                     + Value(0x21, "", "1234") + End + Member("n")
                                     + Value(0x44, "", "3") + End, "1[s2[x=1234 ]n=3 ]"},
        {"member without value", Begin("a") + Member("m") + Member("n") + Value(0x44, "", "3") + End, "1[n=3 ]"},
    };
    // clang-format on
    for (const auto& row : cases) {
        Telling telling;
        EXPECT_EQ(ReadIppReply(Head + row.attributes + Tail + "any document", 7, &telling), "")
            << row.name;
        EXPECT_EQ(telling.text, row.told) << row.name;
    }
}

TEST(IppValue, IsToldInOneLine)
{
    // clang-format off
    const struct {
        int tag;
        std::string value;
        const char* text;
    } cases[] = {
        {0x44, "iso_a4\x1B",         "iso_a4 "},
        {0x36, "\0\2de\0\3rot"s,     "rot"},
        {0x21, "\xFF\xFF\xFF\xFE",    "-2"},
        {0x23, "\0\0\0\5"s,           "5"},
        {0x33, "\0\0\0\1\0\0\1\0"s,   "1-256"},
        {0x22, "\1",                 "true"},
        {0x22, "\0"s,                "false"},
        {0x13, "",                   "(no value)"},
        {0x21, "abc",                "(kind 33, 3 bytes)"},
        {0x33, "abcd",               "(kind 51, 4 bytes)"},
        {0x32, "123456789",          "(kind 50, 9 bytes)"},
    };
    // clang-format on
    for (const auto& row : cases) {
        EXPECT_EQ(IppValueText(static_cast<IppTag>(row.tag), row.value), row.text);
    }
}

TEST(IppReply, IsRefusedWhenMalformed)
{
    const std::string whole = Head + Begin("a") + Member("m") + Value(0x44, "", "w") + End + Tail;
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_NE(ReadIppReply(whole.substr(0, length), 7, nullptr), "") << length;
    }
    EXPECT_EQ(ReadIppReply(whole, 7, nullptr), "");
    EXPECT_EQ(ReadIppReply(whole, 8, nullptr), "the printer answered another request");
    EXPECT_EQ(ReadIppReply("<!DOCTYPE html>", 7, nullptr), "what the printer answered is not IPP");
    const std::string texts = Value(0x44, "a", std::string(32767, 'x'));
    EXPECT_EQ(ReadIppReply(Head + texts + Tail, 7, nullptr), "");

    // clang-format off
    const std::pair<std::string, const char*> cases[] = {
        {Value(0x44, "a", std::string(32768, 'x')), "a text is longer than 32,767 bytes"},
        {Value(0x44, "", "w"),                      "a value belongs to no attribute"},
        {Value(0x44, "a", "w") + "\4" + Begin(""),  "a value belongs to no attribute"},
        {Value(0x37, "a", ""),                      "a value belongs to no attribute"},
        {Begin("a") + Value(0x44, "", "w") + End,   "a value belongs to no member"},
        {Begin("a") + Value(0x4A, "m", "m") + End,  "a member of a collection is named wrongly"},
        {Begin("a") + Member("") + End,             "a member of a collection is named wrongly"},
        {Begin("a") + "\4",                         "a collection is not closed"},
        {Begin("a"),                                "a collection is not closed"},
        {Nested(11),                                "collections are nested too deep"},
        {"\0"s,                                     "what the printer answered is not IPP"},
    };
    // clang-format on
    for (const auto& [attributes, refusal] : cases) {
        EXPECT_EQ(ReadIppReply(Head + attributes + Tail, 7, nullptr), refusal);
    }
    Telling telling;
    EXPECT_EQ(ReadIppReply(Head + Nested(10) + Tail, 7, &telling), "");
    EXPECT_EQ(ReadIppReply(Head + Nested(100'000) + Tail, 7, &telling),
              "collections are nested too deep");
}

TEST(IppValues, AreNumbersAndTextsOrAbsent)
{
    EXPECT_EQ(IppInteger(IppTag::Integer, "\xFF\xFF\xFF\xFE"), -2);
    EXPECT_EQ(IppInteger(IppTag::Integer, "\0\0\0"s), std::nullopt);
    EXPECT_EQ(IppInteger(IppTag::Keyword, "\0\0\0\1"s), std::nullopt);

    const std::string longest(1022, 'x');
    const struct {
        IppTag tag;
        std::string value;
        std::optional<std::string> text;
    } cases[] = {
        {IppTag::Keyword,          "glossy",                "glossy"          },
        {IppTag::Name,             "Büro\n\x1B[31m\x7F",   "Büro  [31m "    },
        {IppTag::Text,             "B\xFCro\0x"s,           "B\uFFFDro\uFFFDx"},
        {IppTag::TextWithLanguage, "\0\2de\0\4B\xC3\xBC!"s, "Bü!"            },
        {IppTag::NameWithLanguage, "\0\2de\0\5B\xC3\xBC!"s, std::nullopt      },
        {IppTag::NameWithLanguage, "\0\2"s,                 std::nullopt      },
        {IppTag::Integer,          "1234",                  std::nullopt      },
        {IppTag::Text,             longest + "ü",          longest           },
    };
    for (const auto& row : cases) {
        EXPECT_EQ(IppText(row.tag, row.value), row.text) << row.value;
    }
}

} // namespace
} // namespace tarvo
