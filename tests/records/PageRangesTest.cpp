#include "records/PageRanges.h"

#include "records/SpecialPagesStatus.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

using Ranges = std::vector<PageRange>;

constexpr PageRange FromTo(std::int32_t first, std::int32_t last)
{
    return {first, last - first + 1};
}

struct ListCase {
    const char* name;
    const char* text;
    OSStatus status;
    Ranges ranges;
};

// clang-format off
const ListCase ListCases[] = {
    {"every kind of item",         "1, 3-5,-7,9-", 0,    {{1, 1}, {3, 3}, {1, 7}, FromTo(9, LargestPageNumber)}},
    {"repeated and out of order",  "5,5,1-5",      0,    {{5, 1}, {5, 1}, {1, 5}}},
    {"blank between two items",    "5 7",          0,    {{5, 1}, {7, 1}}},
    {"blank before the hyphen",    "5 -7",         0,    {{5, 3}}},
    {"blanks after the hyphen",    "5-\t 7",       0,    {{5, 3}}},
    {"item after a whole range",   "1-2 3-4 5",    0,    {{1, 2}, {3, 2}, {5, 1}}},
    {"item after an open start",   "-2 4",         0,    {{1, 2}, {4, 1}}},
    {"open end, then a comma",     "5-,6",         0,    {FromTo(5, LargestPageNumber), {6, 1}}},
    {"empty items",                ",1,,2,",       0,    {{1, 1}, {2, 1}}},
    {"other characters",           "p1;q2\xC3\xBC" "3", 0, {{1, 1}, {2, 1}, {3, 1}}},
    {"digits of another script",   "\xD9\xA3",     1001, {}},
    {"page 0 is a number",         "0,0-",         0,    {{0, 1}, {0, 10'000'000}}},
    {"but no page of a beginning", "-0",           1002, {}},
    {"largest number",             "09999999-",    0,    {{LargestPageNumber, 1}}},
    {"one more",                   "10000000",     1000, {}},
    {"number of many digits",      "3,99999999999999999999999", 1000, {}},
    {"nothing",                    "",             1001, {}},
    {"nothing but commas",         " , ,",         1001, {}},
    {"hyphen alone",               "1,-,2",        1001, {}},
    {"two hyphens",                "1--3",         1001, {}},
    {"hyphen after a range",       "1-2-3",        1001, {}},
    {"two hyphens, no numbers",    "--",           1001, {}},
    {"backwards",                  "1,9-2",        1002, {}},
    {"first fault, order",         "9-2,10000000", 1002, {}},
    {"first fault, no comma",      "9-2 10000000", 1002, {}},
    {"first fault, number",        "10000000,9-2", 1000, {}},
};
// clang-format on

TEST(PageRanges, AreReadAsPeopleTypeThem)
{
    for (const auto& row : ListCases) {
        Ranges ranges(1);
        EXPECT_EQ(CreatePageRangesBySeparatingString(row.text, true, &ranges), row.status)
            << row.name;
        EXPECT_EQ(ranges, row.ranges) << row.name;
    }
    Ranges ranges(1);
    EXPECT_EQ(CreatePageRangesBySeparatingString({}, true, &ranges), StatusBadArgument);
    EXPECT_EQ(ranges, Ranges());
    EXPECT_EQ(CreatePageRangesBySeparatingString("1", true, nullptr), StatusBadArgument);
}

TEST(PageRanges, BecomeSinglePagesInTheOrderTyped)
{
    Ranges pages;
    EXPECT_EQ(CreatePageRangesBySeparatingString("8, 3-5 4", false, &pages), StatusOk);
    std::string typed;
    for (const PageRange& page : pages) {
        EXPECT_EQ(page.count, 1);
        typed += std::to_string(page.firstPage) + " ";
    }
    EXPECT_EQ(typed, "8 3 4 5 4 ");
    EXPECT_EQ(CreatePageRangesBySeparatingString("3-", false, &pages), StatusOk);
    EXPECT_EQ(pages.size(), 9'999'997U);
    EXPECT_EQ(pages.capacity(), pages.size()); // a growing list would take three times the memory
    EXPECT_EQ(pages.back(), (PageRange{LargestPageNumber, 1}));
}

TEST(PageRanges, NameARangeThatRunsBackwards)
{
    Ranges ranges;
    testing::internal::CaptureStderr();
    EXPECT_EQ(CreatePageRangesBySeparatingString("7,9-02", false, &ranges),
              StatusInvalidRangeOrder);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "9-2\n");
}

TEST(SpecialPagesAlerts, AreThoseOfTheParser)
{
    ASSERT_NE(AlertForSpecialPagesStatus(StatusInvalidPageRanges), nullptr);
    EXPECT_STREQ(AlertForSpecialPagesStatus(1001)->titleKey, "Invalid Pages Title");
    EXPECT_STREQ(AlertForSpecialPagesStatus(1234)->messageKey, "PageRangeConflictMessage");
    EXPECT_EQ(AlertForSpecialPagesStatus(StatusOk), nullptr);
    EXPECT_EQ(AlertForSpecialPagesStatus(StatusBadArgument), nullptr);
}

} // namespace
} // namespace tarvo
