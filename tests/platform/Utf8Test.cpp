#include "platform/text/Utf8.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

using namespace std::string_view_literals;

TEST(Utf8Prefix, SplitsNoCharacter)
{
    constexpr auto Text = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"sv; // 1, 2, 3 and 4 bytes
    constexpr std::size_t Lengths[] = {0, 1, 1, 3, 3, 3, 6, 6, 6, 6, 10, 10};
    for (std::size_t bytes = 0; bytes < std::size(Lengths); ++bytes) {
        EXPECT_EQ(Utf8Prefix(Text, bytes), Text.substr(0, Lengths[bytes])) << bytes;
    }
    EXPECT_EQ(Utf8Length(Text), 4U);
    constexpr std::size_t Bytes[] = {0, 1, 3, 6, 10, 10}; // of the first so many characters
    for (std::size_t count = 0; count < std::size(Bytes); ++count) {
        EXPECT_EQ(Utf8FirstCharacters(Text, count), Text.substr(0, Bytes[count])) << count;
    }
}

TEST(ValidUtf8Prefix, EndsBeforeWhatIsNoUtf8)
{
    // name, text, length of its valid beginning
    const std::tuple<const char*, std::string_view, std::size_t> cases[] = {
        {"nothing",           ""sv,                             0 },
        {"last character",    "a\xF4\x8F\xBF\xBF"sv,            5 },
        {"above it",          "a\xF4\x90\x80\x80"sv,            1 },
        {"around surrogates", "\xED\x9F\xBF\xEE\x80\x80"sv,     6 },
        {"surrogate",         "\xED\xA0\x80"sv,                 0 },
        {"overlong",          "ab\xC0\xAF"sv,                   2 },
        {"cut",               "ab\xE2\x82"sv,                   2 },
        {"NUL",               "a\0b"sv,                         1 },
        {"behind much ASCII", "0123456789abcdef\xC3\xA9\xFF"sv, 18},
        {"NUL in much ASCII", "0123456789\0bcdefgh"sv,          10},
    };
    for (const auto& [name, text, valid] : cases) {
        EXPECT_EQ(ValidUtf8Prefix(text).size(), valid) << name;
        EXPECT_EQ(IsUtf8(text), valid == text.size()) << name;
    }
}

} // namespace
} // namespace tarvo
