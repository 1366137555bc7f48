#include "records/FinishingSummary.h"

#include "support/BuiltBundle.h"
#include "support/FinishingText.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

using Finishing = FinishingChoice;

std::string SummaryOf(const Finishing& finishing)
{
    static const CFBundle bundle = BuiltBundle();
    return CreateFinishingString(finishing, bundle);
}

struct SummaryCase {
    const char* choice;
    const char* lines; // without that of the offset
};

// clang-format off
constexpr SummaryCase SummaryCases[] = {
    // A family and its position.
    {"Options: unset",                               "Printer Default\n"},
    {"Options: 1",                                   "None\n"},
    {"Options: 3",                                   "Signature Booklet\n"},
    {"Options: 4, Staple1Value: 8",                  "1 staple, bottom right or bottom left\n"},
    {"Options: 4, Staple2Value: 10",                 "Printer Default\n"},
    {"Options: 9, Staple2Value: 13",                 "2 staples, right or bottom\n"},
    {"Options: 14, BindValue: 16",                   "Bound right or bottom\n"},
    {"Options: 18, FoldValue: 19",                   "C-fold\n"},
    {"Options: 18, FoldValue: 41",                   "Printer Default\n"},
    {"Options: 24, BookletFoldStaple: 8",            "Booklet, folded and stapled\n"},
    {"Options: 25, StapleCenterValue: 27",           "1 center staple, top or right\n"},
    {"Options: 30, HolePunchValue: 34",              "Hole punch, bottom or left\n"},
    {"Options: 30, HolePunchValue: 49",              "Printer Default\n"},
    {"Options: 36, ZFoldValue: 39",                  "Z-fold, bound on the right\n"},
    {"Options: 40, FoldValue: 41",                   "Half fold, each sheet, print inside\n"},
    {"Options: 40, FoldValue: 48",                   "Z-fold in three, print outside\n"},
    {"Options: 40, FoldValue: 20",                   "Printer Default\n"},
    {"Options: 53, FoldValue: 20",                   "Printer Default\n"},
    // Each part of a combination has a line; staples beside the holes, of several on a side, are short.
    {"Options: 49, Staple1Value: 5, HolePunchValue: 32",       "1 staple, top left or top right\nHole punch, left or top\n"},
    {"Options: 49, Staple2Value: 10, HolePunchValue: 32",      "2 staples,\nHole punch, left or top\n"},
    {"Options: 49, Staple2Value: 10, HolePunchValue: 33",      "2 staples, left or top\nHole punch, top or right\n"},
    {"Options: 49, StapleCenterValue: 28, HolePunchValue: 34", "1 center staple,\nHole punch, bottom or left\n"},
    {"Options: 49, Staple2Value: 11, HolePunchValue: 49",      "2 staples, top or right\n\n"},
    {"Options: 49, Staple2Value: 14, HolePunchValue: 49",      "\n\n"},
    {"Options: 49, HolePunchValue: 32",                        "\nHole punch, left or top\n"},
    {"Options: 51, StapleCenterValue: 26, HolePunchValue: 32", "1 center staple, left or top\n\n"},
    {"Options: 52, Staple1Value: 5, HolePunchValue: 33, ZFoldValue: 38", "Hole punch, top or right\nZ-fold, bound on the left\n"},
    {"Options: 50, Staple2Value: 12, HolePunchValue: 34, ZFoldValue: 38",
        "2 staples,\nHole punch, bottom or left\nZ-fold, bound on the left\n"},
    // The first staple family that is set counts, even with an unknown position.
    {"Options: 49, Staple1Value: 6, Staple2Value: 10, HolePunchValue: 32", "1 staple, bottom left or top left\nHole punch, left or top\n"},
    {"Options: 49, Staple1Value: unset, Staple2Value: 10, HolePunchValue: 32", "2 staples,\nHole punch, left or top\n"},
    {"Options: 49, Staple1Value: 9, Staple2Value: 10, HolePunchValue: 32", "\nHole punch, left or top\n"},
};
// clang-format on

TEST(FinishingSummary, NamesTheFamilyAndItsPositions)
{
    for (const auto& row : SummaryCases) {
        EXPECT_EQ(SummaryOf(FinishingOf(row.choice)),
                  std::string(row.lines) + "Offset: Printer Default\n")
            << row.choice;
    }
}

TEST(FinishingSummary, EndsWithWhatAnyFamilyMayHave)
{
    EXPECT_EQ(SummaryOf(FinishingOf("Options: 22, BookletLayout: true, SlipSheet: 2, Offset: 5")),
              "Custom finishing: \nBooklet layout\nSlip sheets\nOffset: Each set and subset\n");
    Finishing finishing = FinishingOf("Options: 22, Custom: \"Böck <%@>\", SlipSheet: 1");
    for (const auto& [offset, text] : {
             std::pair(UnsetValue, "Printer Default"), {2, "None"           },
               {6, "Printer Default"}
    }) {
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
    const char* choice;
    const char* missing;
    const char* unused;
};

// clang-format off
constexpr PartsCase PartsCases[] = {
    {"None is no position",            "Options: 1, HolePunchValue: 1",    "",                        ""},
    {"another family's position",      "Options: 9, Staple1Value: 5",      "FinishingStaple2Value",   "FinishingStaple1Value"},
    {"unset is no position",           "Options: 36, ZFoldValue: unset",   "FinishingZFoldValue",     ""},
    {"a position without a word",      "Options: 18, FoldValue: 41",       "FinishingFoldValue",      ""},
    {"the second table of a family",   "Options: 40, FoldValue: 48",       "",                        ""},
    {"a template without a name",      "Options: 22",                      "FinishingCustom",         ""},
    {"a booklet's own folding",        "BookletFoldStaple: 7",             "",                        ""},
    {"folding beside a family",        "Options: 3, BookletFoldStaple: 8", "",                        "BookletFoldStaple"},
    {"a combination without parts",    "Options: 50", "FinishingStaple1Value FinishingHolePunchValue FinishingZFoldValue", ""},
    {"a second staple family",         "Options: 51, Staple1Value: 5, StapleCenterValue: 26, ZFoldValue: 38", "", "FinishingStapleCenterValue"},
    {"holes where only drivers punch", "Options: 52, HolePunchValue: 49, ZFoldValue: 39, BindValue: 15", "", "FinishingBindValue"},
    {"the same without a combination", "Options: 30, HolePunchValue: 49",  "FinishingHolePunchValue", ""},
};
// clang-format on

TEST(FinishingChoice, TellsWhatAFamilyLacksAndWhatDoesNotCount)
{
    for (const auto& row : PartsCases) {
        const Finishing finishing = FinishingOf(row.choice);
        EXPECT_EQ(Joined(MissingFinishingKeys(finishing)), row.missing) << row.name;
        EXPECT_EQ(Joined(UnusedFinishingKeys(finishing)), row.unused) << row.name;
    }
}

// The other keys are those of the cases above.
TEST(FinishingChoice, ReadsTheTicketsKeysInTheirTypes)
{
    const Finishing read = FinishingOf("HolePunchOptions: 3, OffsetEnableSubset: 1, "
                                       "OffsetPagesPerSubset: 7");
    EXPECT_EQ(read.holes, 3);
    EXPECT_EQ(read.offsetSubset, 1);
    EXPECT_EQ(read.pagesPerSubset, 7);
    EXPECT_EQ(FinishingOf("Options: true, HolePunchOptions: \"3\", Custom: 1, BookletLayout: 1"),
              Finishing());
}

} // namespace
} // namespace tarvo
