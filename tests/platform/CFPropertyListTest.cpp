#include "platform/cf/CFPropertyList.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tarvo {
namespace {

struct EqualityCase {
    const char* name;
    CFPropertyList left;
    CFPropertyList right;
    bool equal;
};

CFDictionary Dictionary(std::initializer_list<std::pair<const char*, CFPropertyList>> entries)
{
    CFDictionary dictionary;
    for (const auto& [key, value] : entries) {
        dictionary.set(key, value);
    }
    return dictionary;
}

TEST(PropertyListValues, AreEqualByKindAndValue)
{
    const EqualityCase cases[] = {
        {"integer and the same real",   1,                                        1.0,                              true },
        {"real and the same integer",   -2.0,                                     -2,                               true },
        {"integer and another real",    1,                                        1.5,                              false},
        {"a boolean is no number",      true,                                     1,                                false},
        {"beyond a double's precision", 9007199254740993,                         9007199254740992.0,               false},
        {"beyond 64 bits",              std::numeric_limits<std::int64_t>::max(), 9223372036854775808.0,            false},
        {"not a number",                std::nan(""),                             std::nan(""),                     false},
        {"text and data",               "a",                                      CFData{"a"},                      false},
        {"order of keys",               Dictionary({{"a", 1}, {"b", 2}}),         Dictionary({{"b", 2}, {"a", 1}}), true },
        {"number inside",               Dictionary({{"a", 1}}),                   Dictionary({{"a", 1.0}}),         true },
        {"another key",                 Dictionary({{"a", 1}}),                   Dictionary({{"b", 1}}),           false},
        {"order of an array",           CFArray{1, 2},                            CFArray{2, 1},                    false},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.left == row.right, row.equal);
        EXPECT_EQ(row.right == row.left, row.equal);
    }
}

struct Int32Case {
    const char* name;
    CFPropertyList value;
    std::optional<std::int32_t> number;
};

TEST(Int32Value, TakesWholeNumbersInRangeOnly)
{
    const Int32Case cases[] = {
        {"integer",      7,                                       7         },
        {"whole real",   7.0,                                     7         },
        {"lowest",       -2147483648LL,                           UnsetValue},
        {"highest real", 2147483647.0,                            2147483647},
        {"above",        2147483648LL,                            {}        },
        {"real above",   2147483648.0,                            {}        },
        {"real below",   -2147483649.0,                           {}        },
        {"fraction",     7.5,                                     {}        },
        {"infinity",     std::numeric_limits<double>::infinity(), {}        },
        {"not a number", std::nan(""),                            {}        },
        {"boolean",      true,                                    {}        },
        {"text",         "7",                                     {}        },
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Int32Value(&row.value), row.number);
    }
    EXPECT_EQ(Int32Value(nullptr), std::nullopt);
}

TEST(OrderedMap, KeepsTheOrderAndFindsAmongMany)
{
    CFDictionary dictionary;
    constexpr int Count = 5000;
    for (int number = 0; number < Count; ++number) {
        dictionary.set("key" + std::to_string(number), number);
    }
    dictionary.set("key7", "replaced in its place");
    EXPECT_FALSE(dictionary.insert("key8", "not taken"));
    EXPECT_TRUE(dictionary.remove("key0"));
    EXPECT_FALSE(dictionary.remove("key0"));
    dictionary.removeKeys([](std::string_view key) { return key.ends_with("5"); });
    CFDictionary copy = dictionary;
    dictionary = CFDictionary();

    EXPECT_EQ(copy.size(), 4499U);
    EXPECT_EQ(copy.begin()->key, "key1");
    EXPECT_EQ(*copy.get<std::string>("key7"), "replaced in its place");
    EXPECT_EQ(copy.int32("key8"), 8);
    EXPECT_EQ(copy.int32("key4999"), 4999);
    EXPECT_FALSE(copy.contains("key0"));
    EXPECT_FALSE(copy.contains("key15"));
    EXPECT_TRUE(dictionary.empty());
}

TEST(OrderedMap, TellsAKeyThatCameTwice)
{
    for (const int count : {3, 40}) {
        SCOPED_TRACE(count);
        std::vector<CFDictionary::Entry> entries;
        for (int number = 0; number < count; ++number) {
            entries.push_back({std::to_string(number), number});
        }
        CFDictionary dictionary;
        EXPECT_EQ(dictionary.assign(entries), std::nullopt);
        entries.push_back({"1", "again"});
        EXPECT_EQ(dictionary.assign(entries), "1");
        EXPECT_EQ(dictionary.size(), static_cast<std::size_t>(count));
        EXPECT_EQ(dictionary.int32("1"), 1);
    }
}

} // namespace
} // namespace tarvo
