#include "records/FinishingSummary.h"

#include "platform/bundle/CFBundle.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

using Finishing = FinishingChoice;

// What every summary ends with while nothing else is chosen.
const std::string Offset = "Offset: Printer Default\n";

std::string SummaryOf(const Finishing& finishing)
{
    static const CFBundle bundle(TARVO_BINARY_DIR "/TarvoFeatures.plugin", {});
    return CreateFinishingString(finishing, bundle);
}

struct FamilyCase {
    std::int32_t option;
    std::int32_t Finishing::*position;
    std::int32_t value;
    const char* line;
};

// clang-format off
constexpr FamilyCase FamilyCases[] = {
    {0,          &Finishing::fold,         0,          "Printer Default"                           },
    {UnsetValue, &Finishing::fold,         0,          "Printer Default"                           },
    {1,          &Finishing::fold,         0,          "None"                                      },
    {3,          &Finishing::fold,         0,          "Signature Booklet"                         },
    {4,          &Finishing::oneStaple,    5,          "1 staple, top left or top right"           },
    {4,          &Finishing::oneStaple,    8,          "1 staple, bottom right or bottom left"     },
    {4,          &Finishing::oneStaple,    10,         "Printer Default"                           },
    {4,          &Finishing::twoStaples,   10,         "Printer Default"                           },
    {9,          &Finishing::twoStaples,   10,         "2 staples, left or top"                    },
    {9,          &Finishing::twoStaples,   13,         "2 staples, right or bottom"                },
    {14,         &Finishing::bind,         16,         "Bound right or bottom"                     },
    {18,         &Finishing::fold,         19,         "C-fold"                                    },
    {18,         &Finishing::fold,         41,         "Printer Default"                           },
    {24,         &Finishing::bookletFold,  7,          "Booklet, folded"                           },
    {24,         &Finishing::bookletFold,  8,          "Booklet, folded and stapled"               },
    {24,         &Finishing::bookletFold,  1,          "Printer Default"                           },
    {25,         &Finishing::centerStaple, 27,         "1 center staple, top or right"             },
    {30,         &Finishing::punch,        34,         "Hole punch, bottom or left"                },
    {30,         &Finishing::punch,        49,         "Printer Default"                           },
    {32,         &Finishing::punch,        32,         "Printer Default"                           },
    {36,         &Finishing::zFold,        39,         "Z-fold, bound on the right"                },
    {36,         &Finishing::zFold,        UnsetValue, "Printer Default"                           },
    {40,         &Finishing::fold,         41,         "Half fold, each sheet, print inside"       },
    {40,         &Finishing::fold,         48,         "Z-fold in three, print outside"            },
    {40,         &Finishing::fold,         20,         "Printer Default"                           },
    {53,         &Finishing::fold,         20,         "Printer Default"                           },
};
// clang-format on

TEST(FinishingSummary, NamesTheFamilyAndItsPosition)
{
    for (const auto& row : FamilyCases) {
        Finishing finishing;
        finishing.option = row.option;
        finishing.*row.position = row.value;
        EXPECT_EQ(SummaryOf(finishing), row.line + ("\n" + Offset))
            << "option " << row.option << ", position " << row.value;
    }
}

struct CombinedCase {
    const char* name;
    std::int32_t option;
    std::int32_t oneStaple;
    std::int32_t twoStaples;
    std::int32_t centerStaple;
    std::int32_t punch;
    std::int32_t zFold;
    const char* lines;
};

// clang-format off
constexpr CombinedCase CombinedCases[] = {
    {"one staple is never short",    49, 5, 0,  0,  32, 0,  "1 staple, top left or top right\nHole punch, left or top\n"},
    {"staples beside the holes",     49, 0, 10, 0,  32, 0,  "2 staples,\nHole punch, left or top\n"},
    {"the last side",                49, 0, 13, 0,  35, 0,  "2 staples,\nHole punch, right or bottom\n"},
    {"staples on another side",      49, 0, 10, 0,  33, 0,  "2 staples, left or top\nHole punch, top or right\n"},
    {"centre staple beside them",    49, 0, 0,  28, 34, 0,  "1 center staple,\nHole punch, bottom or left\n"},
    {"centre staple elsewhere",      49, 0, 0,  26, 35, 0,  "1 center staple, left or top\nHole punch, right or bottom\n"},
    {"unknown holes",                49, 0, 11, 0,  49, 38, "2 staples, top or right\n\n"},
    {"both unknown, no side",        49, 0, 14, 0,  49, 0,  "\n\n"},
    {"no staples",                   49, 0, 0,  0,  32, 0,  "\nHole punch, left or top\n"},
    {"first family that is set",     49, 6, 10, 26, 32, 0,  "1 staple, bottom left or top left\nHole punch, left or top\n"},
    {"unset is not set",             49, UnsetValue, 10, 0, 32, 0, "2 staples,\nHole punch, left or top\n"},
    {"unknown, but set",             49, 9, 10, 0,  32, 0,  "\nHole punch, left or top\n"},
    {"all three",                    50, 0, 12, 0,  34, 38, "2 staples,\nHole punch, bottom or left\nZ-fold, bound on the left\n"},
    {"all three, unknown Z-fold",    50, 0, 0,  29, 32, 40, "1 center staple, right or bottom\nHole punch, left or top\n\n"},
    {"staples without holes",        51, 0, 10, 0,  32, 39, "2 staples, left or top\nZ-fold, bound on the right\n"},
    {"centre staple without holes",  51, 0, 0,  26, 32, 0,  "1 center staple, left or top\n\n"},
    {"holes and Z-fold",             52, 5, 0,  0,  33, 38, "Hole punch, top or right\nZ-fold, bound on the left\n"},
};
// clang-format on

TEST(FinishingSummary, GivesEachPartOfACombinationALine)
{
    for (const auto& row : CombinedCases) {
        Finishing finishing;
        finishing.option = row.option;
        finishing.oneStaple = row.oneStaple;
        finishing.twoStaples = row.twoStaples;
        finishing.centerStaple = row.centerStaple;
        finishing.punch = row.punch;
        finishing.zFold = row.zFold;
        EXPECT_EQ(SummaryOf(finishing), row.lines + Offset) << row.name;
    }
}

TEST(FinishingSummary, EndsWithWhatAnyFamilyMayHave)
{
    Finishing finishing;
    finishing.option = 22;
    finishing.bookletLayout = true;
    finishing.slipSheet = 2;
    finishing.offset = 5;
    EXPECT_EQ(SummaryOf(finishing),
              "Custom finishing: \nBooklet layout\nSlip sheets\nOffset: Each set and subset\n");
    finishing.customText = "Böck <%@>";
    finishing.bookletLayout = false;
    finishing.slipSheet = 1;
    const std::pair<std::int32_t, const char*> offsets[] = {
        {UnsetValue, "Printer Default"},
        {0,          "Printer Default"},
        {1,          "Printer Default"},
        {2,          "None"           },
        {4,          "Each subset"    },
        {6,          "Printer Default"},
    };
    for (const auto& [offset, text] : offsets) {
        finishing.offset = offset;
        EXPECT_EQ(SummaryOf(finishing),
                  std::string("Custom finishing: Böck <%@>\nOffset: ") + text + "\n");
    }
}

std::string Joined(const std::vector<std::string_view>& keys)
{
    std::string joined;
    for (std::string_view key : keys) {
        key.remove_prefix(std::string_view("com.tarvo.print.").size());
        joined.append(joined.empty() ? "" : " ").append(key);
    }
    return joined;
}

struct PartsCase {
    const char* name;
    std::int32_t option;
    std::vector<std::pair<std::int32_t Finishing::*, std::int32_t>> positions;
    const char* missing;
    const char* unused;
};

// clang-format off
const PartsCase PartsCases[] = {
    {"nothing chosen",                 0,  {},                                 "",                        ""},
    {"no finishing needs no position", 1,  {},                                 "",                        ""},
    {"a family's position",            9,  {{&Finishing::twoStaples, 10}},     "",                        ""},
    {"another family's position",      9,  {{&Finishing::oneStaple, 5}},       "FinishingStaple2Value",   "FinishingStaple1Value"},
    {"unset is no position",           36, {{&Finishing::zFold, UnsetValue}},  "FinishingZFoldValue",     ""},
    {"a position without a word",      18, {{&Finishing::fold, 41}},           "FinishingFoldValue",      ""},
    {"the second table of a family",   40, {{&Finishing::fold, 48}},           "",                        ""},
    {"a template without a name",      22, {},                                 "FinishingCustom",         ""},
    {"a booklet's own folding",        0,  {{&Finishing::bookletFold, 7}},     "",                        ""},
    {"folding beside a family",        3,  {{&Finishing::bookletFold, 8}},     "",                        "BookletFoldStaple"},
    {"None is no position",            1,  {{&Finishing::punch, 1}},           "",                        ""},
    {"a combination without parts",    50, {},                                 "FinishingStaple1Value FinishingHolePunchValue FinishingZFoldValue", ""},
    {"a second staple family",         51, {{&Finishing::oneStaple, 5}, {&Finishing::centerStaple, 26}, {&Finishing::zFold, 38}}, "", "FinishingStapleCenterValue"},
    {"holes where only drivers punch", 52, {{&Finishing::punch, 49}, {&Finishing::zFold, 39}, {&Finishing::bind, 15}}, "", "FinishingBindValue"},
    {"the same without a combination", 30, {{&Finishing::punch, 49}},          "FinishingHolePunchValue", ""},
};
// clang-format on

TEST(FinishingChoice, TellsWhatAFamilyLacksAndWhatDoesNotCount)
{
    for (const auto& row : PartsCases) {
        Finishing finishing;
        finishing.option = row.option;
        for (const auto& [position, value] : row.positions) {
            finishing.*position = value;
        }
        EXPECT_EQ(Joined(MissingFinishingKeys(finishing)), row.missing) << row.name;
        EXPECT_EQ(Joined(UnusedFinishingKeys(finishing)), row.unused) << row.name;
    }
}

TEST(FinishingChoice, ReadsTheTicketsKeys)
{
    struct NumberCase {
        const char* key;
        std::int32_t Finishing::*value;
    };
    constexpr NumberCase numbers[] = {
        {"Options",              &Finishing::option        },
        {"Staple1Value",         &Finishing::oneStaple     },
        {"Staple2Value",         &Finishing::twoStaples    },
        {"StapleCenterValue",    &Finishing::centerStaple  },
        {"FoldValue",            &Finishing::fold          },
        {"BindValue",            &Finishing::bind          },
        {"HolePunchValue",       &Finishing::punch         },
        {"HolePunchOptions",     &Finishing::holes         },
        {"ZFoldValue",           &Finishing::zFold         },
        {"SlipSheet",            &Finishing::slipSheet     },
        {"Offset",               &Finishing::offset        },
        {"OffsetEnableSubset",   &Finishing::offsetSubset  },
        {"OffsetPagesPerSubset", &Finishing::pagesPerSubset},
    };
    CFDictionary ticket;
    CFDictionary otherTypes;
    Finishing expected;
    for (std::int32_t number = 101; const auto& row : numbers) {
        ticket.set(std::string("com.tarvo.print.Finishing") + row.key, number);
        otherTypes.set(std::string("com.tarvo.print.Finishing") + row.key, true);
        expected.*row.value = number++;
    }
    ticket.set("com.tarvo.print.BookletFoldStaple", 7);
    ticket.set("com.tarvo.print.BookletLayout", true);
    ticket.set("com.tarvo.print.FinishingCustom", "trim");
    expected.bookletFold = 7;
    expected.bookletLayout = true;
    expected.customText = "trim";
    EXPECT_EQ(Finishing(ticket), expected);
    otherTypes.set("com.tarvo.print.BookletFoldStaple", "7");
    otherTypes.set("com.tarvo.print.BookletLayout", 1);
    otherTypes.set("com.tarvo.print.FinishingCustom", 1);
    EXPECT_EQ(Finishing(otherTypes), Finishing());
    EXPECT_EQ(Finishing(CFDictionary()), Finishing());
}

} // namespace
} // namespace tarvo
