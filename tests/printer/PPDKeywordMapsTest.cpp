#include "printer/PPDKeywordMaps.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

struct KeywordCase {
    const char* name;
    const char* mainKeyword;
    const char* option;
    std::int32_t value;
};

// Both ways, as a menu and the ticket's PPD dictionary need them.
constexpr KeywordCase KeywordCases[] = {
    {"keyword unlike its table", "JCLBanner",         "True", 1 },
    {"value 0",                  "Jog",               "None", 0 },
    {"starts with a digit",      "PageSize",          "815",  23},
    {"last main keyword",        "JCLTrueGrayImages", "True", 2 },
};

TEST(PPDKeywords, StandForNumbersAndBack)
{
    for (const auto& row : KeywordCases) {
        SCOPED_TRACE(row.name);
        const PPDKeywordMap* map = GetPPDOptionMapForMainKeyword(row.mainKeyword);
        EXPECT_EQ(GetTicketValueForPPDOptionKeyword(map, row.option), row.value);
        EXPECT_STREQ(GetPPDOptionKeywordForTicketValue(map, row.value), row.option);
    }
    EXPECT_EQ(GetPPDOptionMapForMainKeyword("pagesize"), nullptr);
    for (const char* unknown : {"letter", "Lette", ""}) {
        EXPECT_EQ(GetTicketValueForPPDOptionKeyword(PageSizeMap, unknown), -1);
    }
    for (const std::int32_t unknown : {12, 0}) {
        EXPECT_EQ(GetPPDOptionKeywordForTicketValue(PageSizeMap, unknown), nullptr);
    }
    EXPECT_EQ(GetTicketValueForPPDOptionKeyword(nullptr, "Letter"), -1);
    EXPECT_EQ(GetPPDOptionKeywordForTicketValue(nullptr, 1), nullptr);
}

// The second of two equal keywords or values could never be found.
TEST(PPDKeywords, AreUniqueWithinTheirTable)
{
    for (const auto* main = MainKeywordMap; main->keyword != nullptr; ++main) {
        SCOPED_TRACE(main->keyword);
        for (const auto* row = main->options; row->keyword != nullptr; ++row) {
            EXPECT_EQ(GetTicketValueForPPDOptionKeyword(main->options, row->keyword), row->value);
            EXPECT_STREQ(GetPPDOptionKeywordForTicketValue(main->options, row->value),
                         row->keyword);
        }
    }
}

} // namespace
} // namespace tarvo
