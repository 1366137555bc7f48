#include "records/PageRanges.h"

#include "records/SpecialPagesStatus.h"

#include <gtest/gtest.h>

#include <random>
#include <regex>

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
        SCOPED_TRACE(row.name);
        Ranges ranges{
            {1, 1}
        };
        EXPECT_EQ(CreatePageRangesBySeparatingString(row.text, true, &ranges), row.status);
        EXPECT_EQ(ranges, row.ranges);
    }
    Ranges ranges{
        {1, 1}
    };
    EXPECT_EQ(CreatePageRangesBySeparatingString({}, true, &ranges), StatusBadArgument);
    EXPECT_EQ(ranges, Ranges());
    EXPECT_EQ(CreatePageRangesBySeparatingString("1", true, nullptr), StatusBadArgument);
}

TEST(PageRanges, BecomeSinglePagesInTheOrderTyped)
{
    Ranges pages;
    EXPECT_EQ(CreatePageRangesBySeparatingString("8, 3-5 4", false, &pages), StatusOk);
    EXPECT_EQ(pages, (Ranges{
                         {8, 1},
                         {3, 1},
                         {4, 1},
                         {5, 1},
                         {4, 1}
    }));
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

struct Model {
    OSStatus status = StatusOk;
    Ranges ranges;
};

// The rule as a pattern: items are cut off the front of the text, blanks and the like gone unless
// they part two numbers.
Model ModelOf(const std::string& text)
{
    static const std::regex Skipped("[^-,0-9]+");
    static const std::regex BesideSign(" *([-,]) *");
    static const std::regex Item("([0-9]*)(-?)([0-9]*)(-?)[ ,]?");
    std::string rest = std::regex_replace(std::regex_replace(text, Skipped, " "), BesideSign, "$1");
    Model model;
    for (std::smatch item; !rest.empty(); rest = item.suffix()) {
        std::regex_search(rest, item, Item, std::regex_constants::match_continuous);
        const auto page = [&item](std::size_t group, double otherwise) {
            return item[group].length() == 0 ? otherwise : std::stod(item[group]);
        };
        const double first = page(1, 1);
        const double last = item[2].length() == 0 ? first : page(3, LargestPageNumber);
        const bool isEmpty = item[1].length() == 0 && item[3].length() == 0;
        if (first > LargestPageNumber || last > LargestPageNumber) {
            return {StatusPageNumberLimit, {}};
        }
        if (item[4].length() != 0 || (isEmpty && item[2].length() != 0)) {
            return {StatusInvalidPageRanges, {}};
        }
        if (first > last) {
            return {StatusInvalidRangeOrder, {}};
        }
        if (!isEmpty) {
            model.ranges.push_back(
                FromTo(static_cast<std::int32_t>(first), static_cast<std::int32_t>(last)));
        }
    }
    return model.ranges.empty() ? Model{StatusInvalidPageRanges, {}} : model;
}

TEST(PageRanges, AgreeWithAPlainModel)
{
    constexpr std::string_view Pieces[] = {"1", "27",  "3", "9999999", "10000000", "-", "-",
                                           "-", ",",   ",", " ",       "0",        "x", "5",
                                           "4", " - ", "8", "12",      ",",        " "};
    std::mt19937 random(20'261'121);
    int valid = 0;
    for (int round = 0; round < 5'000; ++round) {
        std::string text;
        for (auto count = random() % 8; count != 0; --count) {
            text += Pieces[random() % std::size(Pieces)];
        }
        SCOPED_TRACE(text);
        Ranges ranges;
        testing::internal::CaptureStderr();
        const OSStatus status = CreatePageRangesBySeparatingString(text, true, &ranges);
        testing::internal::GetCapturedStderr();
        const Model model = ModelOf(text);
        ASSERT_EQ(status, model.status);
        ASSERT_EQ(ranges, model.ranges);
        valid += status == StatusOk ? 1 : 0;
    }
    EXPECT_GT(valid, 500); // the texts must not all be nonsense
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
