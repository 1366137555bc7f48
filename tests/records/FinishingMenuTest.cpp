#include "records/FinishingMenu.h"

#include "support/BuiltBundle.h"
#include "support/FinishingText.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

using Finishing = FinishingChoice;

const std::vector<FinishingOffer> Offers = {
    {0,  "PrinterDefault",        {}          },
    {1,  "None",                  {}          },
    {4,  "1 Staple...",           {5, 7}      },
    {9,  "2 Staples...",          {10, 13}    },
    {30, "Hole Punch...",         {3, 5}      },
    {36, "Z-Fold...",             {38, 39}    },
    {40, "Advanced Fold...",      {42, 44, 47}},
    {49, "Multiple Finishing...", {49, 50, 51}},
};

// Values with the checked one in brackets.
std::string ValuesOf(const Menu& menu)
{
    std::string values;
    for (const MenuItem& item : menu) {
        const std::string value = std::to_string(item.value);
        values += (values.empty() ? "" : " ") + (item.isChecked ? "[" + value + "]" : value);
    }
    return values;
}

struct MenuCase {
    const char* name;
    std::int32_t option;
    const char* values;
};

constexpr MenuCase MenuCases[] = {
    {"unset is the default",        UnsetValue, "[0] 1 4 9 30 36 40 49"   },
    {"offered",                     9,          "0 1 4 [9] 30 36 40 49"   },
    {"any combination",             52,         "0 1 4 9 30 36 40 [49]"   },
    {"not offered, in its place",   18,         "0 1 4 9 [18] 30 36 40 49"},
    {"not offered, before the end", 25,         "0 1 4 9 30 36 40 [25] 49"},
    {"another number of no family", 53,         "0 1 4 9 30 36 40 49 [53]"},
};

TEST(FinishingMenu, HasWhatIsOfferedAndWhatTheJobHas)
{
    const CFBundle bundle = BuiltBundle();
    for (const auto& row : MenuCases) {
        Finishing choice;
        choice.option = row.option;
        EXPECT_EQ(ValuesOf(FinishingMenu(bundle, Offers, choice)), row.values) << row.name;
    }
    Finishing combined;
    combined.option = 51;
    EXPECT_EQ(ValuesOf(FinishingMenu(bundle, {}, combined)), "0 1 [49]") << "no printer is known";
    EXPECT_EQ(FinishingMenu(bundle, Offers, combined)[3].text, "2 Staples…");
    EXPECT_EQ(FinishingMenu(bundle, {}, FinishingOf("Options: 53")).back().text, "Unknown");
}

struct DialogCase {
    const char* name;
    const char* current; // has the family of the menu's item
    bool hasDialog;
    bool hasChoices;
};

constexpr DialogCase DialogCases[] = {
    {"offered",                        "Options: 9, Staple2Value: 10",    true,  true },
    {"the job's own alone",            "Options: 14, BindValue: 15",      true,  true },
    {"not offered, unknown position",  "Options: 18, FoldValue: 99",      true,  false},
    {"a name of the user's",           "Options: 22",                     true,  true },
    {"two parts",                      "Options: 49",                     true,  true },
    {"no position",                    "Options: 3",                      false, false},
    {"a position instead of a family", "Options: 32, HolePunchValue: 32", false, false},
};

TEST(FinishingMenu, PromisesADialogOnlyWhereThereIsSomethingToChoose)
{
    const CFBundle bundle = BuiltBundle();
    for (const auto& row : DialogCases) {
        const Finishing current = FinishingOf(row.current);
        EXPECT_EQ(HasFinishingDialog(current.option), row.hasDialog) << row.name;
        EXPECT_EQ(HasFinishingChoices(bundle, Offers, current.option, current), row.hasChoices)
            << row.name;
    }
    const Finishing stapled = FinishingOf("Options: 9, Staple2Value: 10");
    EXPECT_FALSE(HasFinishingChoices(bundle, {}, 49, stapled)) << "one part is no combination";
    EXPECT_FALSE(HasFinishingChoices(bundle, {}, 30, stapled)) << "no holes of any number";
}

struct PositionsCase {
    const char* name;
    std::int32_t option; // of the dialog
    const char* current;
    const char* values;
};

constexpr PositionsCase PositionsCases[] = {
    {"the first",                     9,  "",                              "[10] 13"      },
    {"the job's, which isn't there",  9,  "Options: 9, Staple2Value: 11",  "10 [11] 13"   },
    {"another family's leftover",     9,  "Options: 4, Staple2Value: 11",  "[10] 13"      },
    {"part of a combination",         9,  "Options: 49, Staple2Value: 13", "10 [13]"      },
    {"both tables of a family",       40, "Options: 40, FoldValue: 48",    "42 44 47 [48]"},
    {"a simple fold is no other one", 40, "Options: 18, FoldValue: 19",    "[42] 44 47"   },
    {"holes on any side",             30, "",                              "[32] 33 34 35"},
    {"not offered",                   14, "Options: 14, BindValue: 16",    "[16]"         },
    {"without positions",             22, "Options: 22",                   ""             },
};

TEST(FinishingPositions, AreTheInstalledOnesAndTheJobsOwn)
{
    const CFBundle bundle = BuiltBundle();
    for (const auto& row : PositionsCases) {
        EXPECT_EQ(
            ValuesOf(FinishingPositions(bundle, Offers, row.option, FinishingOf(row.current))),
            row.values)
            << row.name;
    }
    EXPECT_EQ(ValuesOf(HoleCounts(bundle, Offers, Finishing())), "[3] 5");
    Finishing punched = FinishingOf("Options: 50");
    EXPECT_EQ(ValuesOf(HoleCounts(bundle, Offers, punched)), "3 [4] 5");
    punched.holes = 5;
    EXPECT_EQ(ValuesOf(HoleCounts(bundle, Offers, punched)), "3 [5]");
    punched.holes = 77;
    EXPECT_EQ(ValuesOf(HoleCounts(bundle, Offers, punched)), "3 5") << "no other one";
}

// A job with something of everything, as no dialog leaves it.
const std::string Everything =
    "Options: 50, Staple1Value: 5, Staple2Value: 10, StapleCenterValue: 26, FoldValue: 19, "
    "BindValue: 15, HolePunchValue: 32, HolePunchOptions: 5, ZFoldValue: 38, BookletFoldStaple: 8, "
    "Offset: 3";

TEST(ChooseFinishing, LeavesNothingOfOtherFamilies)
{
    struct ChoiceCase {
        std::int32_t option;
        std::int32_t position;
        const char* left;
    };
    constexpr ChoiceCase cases[] = {
        {0,  0,  "Offset: 3"                                                      },
        {4,  7,  "Options: 4, Staple1Value: 7, Offset: 3"                         },
        {18, 20, "Options: 18, FoldValue: 20, Offset: 3"                          },
        {24, 7,  "Options: 24, BookletFoldStaple: 7, Offset: 3"                   },
        {30, 33, "Options: 30, HolePunchValue: 33, HolePunchOptions: 5, Offset: 3"},
        {36, 39, "Options: 36, ZFoldValue: 39, Offset: 3"                         },
    };
    for (const auto& row : cases) {
        EXPECT_EQ(ChooseFinishing(FinishingOf(Everything), row.option, row.position),
                  FinishingOf(row.left));
    }
    EXPECT_EQ(ChooseFinishing(FinishingOf(Everything + ", BookletLayout: true"), 0).bookletFold, 8)
        << "the layout's own";
}

TEST(CombinedFinishing, GoesByItsParts)
{
    struct CombinedCase {
        const char* name;
        CombinedFinishing parts;
        std::int32_t option; // 0: fewer than two parts
    };
    constexpr CombinedCase cases[] = {
        {"staples alone",     {9, 12, 0, 0, 0},   0 },
        {"staples and holes", {9, 12, 34, 3, 0},  49},
        {"all",               {4, 6, 34, 5, 39},  50},
        {"staples and fold",  {25, 29, 0, 0, 38}, 51},
        {"no staple's place", {9, 0, 35, 3, 38},  52},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        const auto chosen = ChooseCombinedFinishing(FinishingOf(Everything), row.parts);
        ASSERT_EQ(chosen.has_value(), row.option != 0);
        if (chosen) {
            EXPECT_EQ(chosen->option, row.option);
            CombinedFinishing parts = row.parts;
            parts.stapleFamily = parts.staple == 0 ? 0 : parts.stapleFamily;
            EXPECT_EQ(PartsOf(*chosen), parts);
            EXPECT_TRUE(UnusedFinishingKeys(*chosen).empty());
            EXPECT_EQ(chosen->holes, row.parts.punch == 0 ? 4 : row.parts.holes);
        }
    }
    EXPECT_EQ(PartsOf(FinishingOf(Everything)), (CombinedFinishing{4, 5, 32, 5, 38}))
        << "first staples";
    EXPECT_EQ(PartsOf(FinishingOf("Options: 14, BindValue: 15")), CombinedFinishing());
}

// A job whose numbers no menu has.
constexpr const char* OddCombination =
    "Options: 50, Staple1Value: 99, HolePunchValue: 49, HolePunchOptions: 0, ZFoldValue: 77";

TEST(MultipleFinishing, KeepsUnknownNumbersThatNobodyTouches)
{
    Finishing odd = FinishingOf(OddCombination);
    const auto start = StartMultipleFinishing(BuiltBundle(), Offers, odd);
    Finishing expected = odd;
    expected.holes = 3; // the first that the printer offers
    EXPECT_EQ(ChosenFinishing(odd, start), expected);
    odd.holes = 77;
    EXPECT_EQ(ChosenFinishing(odd, StartMultipleFinishing(BuiltBundle(), Offers, odd)), odd);
}

TEST(MultipleFinishing, SwitchesOffPartsWithNothingToChoose)
{
    const Finishing odd = FinishingOf(OddCombination);
    const std::vector<FinishingOffer> folds = {
        {36, "Z-Fold...", {38}}
    };
    const auto withFold = StartMultipleFinishing(BuiltBundle(), folds, odd);
    const auto chosen = ChosenFinishing(odd, withFold);
    ASSERT_TRUE(chosen);
    EXPECT_EQ(chosen->option, 52) << "no staples";
    EXPECT_EQ(chosen->holes, 4) << "the usual number, not none";
    const auto start = StartMultipleFinishing(BuiltBundle(), {}, odd);
    EXPECT_EQ(start.hasZFold, 0);
    EXPECT_EQ(ChosenFinishing(odd, start), std::nullopt) << "holes alone";
}

TEST(MultipleFinishing, IsCombinedStepByStep)
{
    const Finishing current = FinishingOf("Options: 30, HolePunchValue: 33");
    MultipleFinishing chosen = StartMultipleFinishing(BuiltBundle(), Offers, current);
    EXPECT_EQ(chosen.parts, (CombinedFinishing{0, 0, 33, 4, 38})) << "and the first Z-fold";
    EXPECT_EQ(ChosenFinishing(current, chosen), std::nullopt);
    EXPECT_EQ(FinishingSoFar(current, chosen), current);
    chosen.hasZFold = 1;
    EXPECT_EQ(ChosenFinishing(current, chosen).value().option, 52);
    chosen.hasHoles = 0;
    EXPECT_EQ(FinishingSoFar(current, chosen), FinishingOf("Options: 36, ZFoldValue: 38"));
    chosen.parts.stapleFamily = 9;
    chosen.parts.staple = 13;
    EXPECT_EQ(FinishingSoFar(current, chosen).option, 51);
    chosen.hasZFold = 0;
    EXPECT_EQ(FinishingSoFar(current, chosen), FinishingOf("Options: 9, Staple2Value: 13"));
    chosen.parts.stapleFamily = 0;
    EXPECT_EQ(FinishingSoFar(current, chosen).option, 1);
}

} // namespace
} // namespace tarvo
