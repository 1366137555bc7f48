#include "platform/cf/CFPropertyList.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tarvo {
namespace {

CFDictionary With(CFDictionary dictionary, const char* key, CFPropertyList value)
{
    dictionary.set(key, std::move(value));
    return dictionary;
}

TEST(PropertyListValues, AreEqualByKindAndValue)
{
    const CFDictionary one = With({}, "a", 1);
    const CFDictionary two = With(one, "b", 2);
    const CFDictionary turned = With(With({}, "b", 2), "a", 1.0);
    const CFDictionary otherKey = With({}, "b", 1);
    constexpr double TwoTo63 = 9223372036854775808.0;
    const std::tuple<const char*, CFPropertyList, CFPropertyList, bool> cases[] = {
        {"integer and the same real",   1,                1.0,                true },
        {"integer and another real",    1,                1.5,                false},
        {"a boolean is no number",      true,             1,                  false},
        {"beyond a double's precision", 9007199254740993, 9007199254740992.0, false},
        {"beyond 64 bits",              INT64_MAX,        TwoTo63,            false},
        {"not a number",                std::nan(""),     std::nan(""),       false},
        {"text and data",               "a",              CFData{"a"},        false},
        {"order of keys",               two,              turned,             true },
        {"a key more",                  one,              two,                false},
        {"another key",                 one,              otherKey,           false},
        {"order of an array",           CFArray{1, 2},    CFArray{2, 1},      false},
    };
    for (const auto& [name, left, right, equal] : cases) {
        EXPECT_EQ(left == right, equal) << name;
        EXPECT_EQ(right == left, equal) << name;
    }
}

TEST(Int32Value, TakesWholeNumbersInRangeOnly)
{
    const CFPropertyList numbers[] = {-2147483648LL, -2147483648.0, 2147483647, 2147483647.0};
    for (const auto& number : numbers) {
        EXPECT_EQ(Int32Value(&number), number == UnsetValue ? UnsetValue : 2147483647);
    }
    const CFPropertyList others[] = {2147483648, 2147483648.0, -2147483649.0, 7.5, NAN, true, "7"};
    for (const auto& other : others) {
        EXPECT_EQ(Int32Value(&other), std::nullopt) << other.kindName();
    }
    EXPECT_EQ(Int32Value(nullptr), std::nullopt);
}

TEST(OrderedMap, KeepsTheOrderAndFindsAmongMany)
{
    CFDictionary dictionary;
    constexpr int Count = 200'000; // takes minutes when each is looked for among all
    for (int number = 0; number < Count; ++number) {
        dictionary.set("key" + std::to_string(number), number);
    }
    dictionary.set("key7", "replaced in its place");
    EXPECT_FALSE(dictionary.insert("key8", "not taken"));
    EXPECT_TRUE(dictionary.remove("key0"));
    dictionary.removeKeys([](std::string_view key) { return key.ends_with("5"); });
    const CFDictionary copy = dictionary;
    dictionary = CFDictionary();

    EXPECT_EQ(copy.size(), Count / 10 * 9 - 1U);
    EXPECT_EQ(copy.begin()->key, "key1");
    EXPECT_EQ(*copy.get<std::string>("key7"), "replaced in its place");
    EXPECT_EQ(copy.int32("key8"), 8);
    EXPECT_EQ(copy.int32("key199999"), 199999);
    EXPECT_FALSE(copy.contains("key15"));
}

TEST(OrderedMap, TellsAKeyThatCameTwice)
{
    std::vector<CFDictionary::Entry> entries;
    for (int number = 0; number < 40; ++number) {
        entries.push_back({std::to_string(number), number});
    }
    CFDictionary dictionary;
    EXPECT_EQ(dictionary.assign(entries), std::nullopt);
    entries.push_back({"1", "again"});
    EXPECT_EQ(dictionary.assign(entries), "1");
    EXPECT_EQ(dictionary.size(), 40U);
    EXPECT_EQ(dictionary.int32("1"), 1);
}

} // namespace
} // namespace tarvo
