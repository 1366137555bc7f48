#include "records/FinishingMenu.h"

#include "platform/bundle/CFBundle.h"
#include "support/BuiltBundle.h"

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

Finishing WithPosition(std::int32_t option, std::int32_t Finishing::*position, std::int32_t value)
{
    Finishing choice;
    choice.option = option;
    choice.*position = value;
    return choice;
}

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
    {"no family",                   2,          "0 1 4 9 30 36 40 49"     },
    {"another number of no family", 53,         "0 1 4 9 30 36 40 49"     },
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
}

struct DialogCase {
    const char* name;
    std::int32_t option; // of the menu's item and of the job
    std::int32_t Finishing::*position;
    std::int32_t value;
    bool hasDialog;
    bool hasChoices;
};

constexpr DialogCase DialogCases[] = {
    {"offered",                        9,  &Finishing::twoStaples, 10, true,  true },
    {"the job's own alone",            14, &Finishing::bind,       15, true,  true },
    {"not offered, unknown position",  18, &Finishing::fold,       99, true,  false},
    {"a name of the user's",           22, &Finishing::fold,       0,  true,  true },
    {"two parts",                      49, &Finishing::fold,       0,  true,  true },
    {"no position",                    3,  &Finishing::fold,       0,  false, false},
    {"no family",                      2,  &Finishing::fold,       0,  false, false},
    {"a position instead of a family", 32, &Finishing::punch,      32, false, false},
    {"behind the last",                53, &Finishing::fold,       0,  false, false},
    {"below the first",                -5, &Finishing::fold,       0,  false, false},
};

TEST(FinishingMenu, PromisesADialogOnlyWhereThereIsSomethingToChoose)
{
    const CFBundle bundle = BuiltBundle();
    for (const auto& row : DialogCases) {
        const Finishing current = WithPosition(row.option, row.position, row.value);
        EXPECT_EQ(HasFinishingDialog(row.option), row.hasDialog) << row.name;
        EXPECT_EQ(HasFinishingChoices(bundle, Offers, row.option, current), row.hasChoices)
            << row.name;
    }
    const Finishing stapled = WithPosition(9, &Finishing::twoStaples, 10);
    EXPECT_FALSE(HasFinishingChoices(bundle, {}, 49, stapled)) << "one part is no combination";
    EXPECT_FALSE(HasFinishingChoices(bundle, {}, 30, stapled)) << "no holes of any number";
}

struct PositionsCase {
    const char* name;
    std::int32_t option; // of the dialog
    std::int32_t current;
    std::int32_t Finishing::*position;
    std::int32_t value;
    const char* values;
};

constexpr PositionsCase PositionsCases[] = {
    {"the first",                     9,  0,  &Finishing::twoStaples, 0,  "[10] 13"      },
    {"the job's",                     9,  9,  &Finishing::twoStaples, 13, "10 [13]"      },
    {"the job's, which isn't there",  9,  9,  &Finishing::twoStaples, 11, "10 [11] 13"   },
    {"another family's leftover",     9,  4,  &Finishing::twoStaples, 11, "[10] 13"      },
    {"part of a combination",         9,  49, &Finishing::twoStaples, 13, "10 [13]"      },
    {"both tables of a family",       40, 40, &Finishing::fold,       48, "42 44 47 [48]"},
    {"a simple fold is no other one", 40, 18, &Finishing::fold,       19, "[42] 44 47"   },
    {"holes on any side",             30, 0,  &Finishing::punch,      0,  "[32] 33 34 35"},
    {"not offered",                   14, 14, &Finishing::bind,       16, "[16]"         },
    {"without positions",             22, 22, &Finishing::bind,       16, ""             },
};

TEST(FinishingPositions, AreTheInstalledOnesAndTheJobsOwn)
{
    const CFBundle bundle = BuiltBundle();
    for (const auto& row : PositionsCases) {
        EXPECT_EQ(ValuesOf(FinishingPositions(bundle, Offers, row.option,
                                              WithPosition(row.current, row.position, row.value))),
                  row.values)
            << row.name;
    }
    Finishing punched;
    EXPECT_EQ(ValuesOf(HoleCounts(bundle, Offers, punched)), "[3] 5");
    punched.option = 50;
    EXPECT_EQ(ValuesOf(HoleCounts(bundle, Offers, punched)), "3 [4] 5");
    punched.holes = 5;
    EXPECT_EQ(ValuesOf(HoleCounts(bundle, Offers, punched)), "3 [5]");
}

// A job with something of everything, as no dialog leaves it.
Finishing Everything()
{
    Finishing all;
    all.option = 50;
    all.oneStaple = 5;
    all.twoStaples = 10;
    all.centerStaple = 26;
    all.fold = 19;
    all.bind = 15;
    all.punch = 32;
    all.holes = 5;
    all.zFold = 38;
    all.bookletFold = 8;
    all.offset = 3;
    return all;
}

TEST(ChooseFinishing, LeavesNothingOfOtherFamilies)
{
    struct ChoiceCase {
        std::int32_t option;
        std::int32_t Finishing::*position;
        std::int32_t value;
    };
    constexpr ChoiceCase cases[] = {
        {0,  &Finishing::bookletFold,  1 },
        {3,  &Finishing::bookletFold,  1 },
        {4,  &Finishing::oneStaple,    7 },
        {9,  &Finishing::twoStaples,   11},
        {14, &Finishing::bind,         16},
        {18, &Finishing::fold,         20},
        {24, &Finishing::bookletFold,  7 },
        {25, &Finishing::centerStaple, 27},
        {36, &Finishing::zFold,        39},
        {40, &Finishing::fold,         48},
    };
    for (const auto& row : cases) {
        Finishing expected = WithPosition(row.option, row.position, row.value);
        expected.offset = 3;
        EXPECT_EQ(ChooseFinishing(Everything(), row.option, row.value), expected) << row.option;
    }
    Finishing punched = WithPosition(30, &Finishing::punch, 33);
    punched.holes = 5;
    punched.offset = 3;
    EXPECT_EQ(ChooseFinishing(Everything(), 30, 33), punched);
    Finishing layout = Everything();
    layout.bookletLayout = true;
    EXPECT_EQ(ChooseFinishing(layout, 0).bookletFold, 8) << "the layout's own";
}

TEST(CombinedFinishing, GoesByItsParts)
{
    struct CombinedCase {
        const char* name;
        CombinedFinishing parts;
        std::int32_t option; // 0: fewer than two parts
    };
    constexpr CombinedCase cases[] = {
        {"nothing",           {0, 0, 0, 0, 0},    0 },
        {"staples alone",     {9, 12, 0, 0, 0},   0 },
        {"holes alone",       {0, 0, 34, 3, 0},   0 },
        {"staples and holes", {9, 12, 34, 3, 0},  49},
        {"all",               {4, 6, 34, 5, 39},  50},
        {"staples and fold",  {25, 29, 0, 0, 38}, 51},
        {"holes and fold",    {0, 0, 35, 3, 38},  52},
        {"no staple's place", {9, 0, 35, 3, 38},  52},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        const auto chosen = ChooseCombinedFinishing(Everything(), row.parts);
        ASSERT_EQ(chosen.has_value(), row.option != 0);
        if (chosen) {
            EXPECT_EQ(chosen->option, row.option);
            CombinedFinishing parts = row.parts;
            parts.stapleFamily = parts.staple == 0 ? 0 : parts.stapleFamily;
            EXPECT_EQ(PartsOf(*chosen), parts);
            EXPECT_TRUE(UnusedFinishingKeys(*chosen).empty());
            EXPECT_TRUE(MissingFinishingKeys(*chosen).empty());
            EXPECT_EQ(chosen->holes, row.parts.punch == 0 ? 4 : row.parts.holes);
        }
    }
    EXPECT_EQ(PartsOf(Everything()), (CombinedFinishing{4, 5, 32, 5, 38})) << "first staples";
    EXPECT_EQ(PartsOf(WithPosition(9, &Finishing::twoStaples, 10)),
              (CombinedFinishing{9, 10, 0, 0, 0}));
    EXPECT_EQ(PartsOf(WithPosition(14, &Finishing::bind, 15)), CombinedFinishing());
}

// A job whose numbers no menu has.
Finishing OddCombination()
{
    Finishing odd;
    odd.option = 50;
    odd.oneStaple = 99;
    odd.punch = 49;
    odd.holes = 0;
    odd.zFold = 77;
    return odd;
}

TEST(MultipleFinishing, KeepsUnknownPositionsThatNobodyTouches)
{
    const Finishing odd = OddCombination();
    const auto start = StartMultipleFinishing(BuiltBundle(), Offers, odd);
    Finishing expected = odd;
    expected.holes = 3; // the first that the printer offers
    EXPECT_EQ(ChosenFinishing(odd, start), expected);
}

TEST(MultipleFinishing, SwitchesOffPartsWithNothingToChoose)
{
    const Finishing odd = OddCombination();
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
    const Finishing current = WithPosition(30, &Finishing::punch, 33);
    MultipleFinishing chosen = StartMultipleFinishing(BuiltBundle(), Offers, current);
    EXPECT_EQ(chosen.parts, (CombinedFinishing{0, 0, 33, 4, 38})) << "and the first Z-fold";
    EXPECT_EQ(ChosenFinishing(current, chosen), std::nullopt);
    EXPECT_EQ(FinishingSoFar(current, chosen), current);
    chosen.hasZFold = 1;
    EXPECT_EQ(ChosenFinishing(current, chosen).value().option, 52);
    chosen.hasHoles = 0;
    EXPECT_EQ(FinishingSoFar(current, chosen), WithPosition(36, &Finishing::zFold, 38));
    chosen.parts.stapleFamily = 9;
    chosen.parts.staple = 13;
    EXPECT_EQ(FinishingSoFar(current, chosen).option, 51);
    chosen.hasZFold = 0;
    EXPECT_EQ(FinishingSoFar(current, chosen), WithPosition(9, &Finishing::twoStaples, 13));
    chosen.parts.stapleFamily = 0;
    EXPECT_EQ(FinishingSoFar(current, chosen).option, 1);
}

} // namespace
} // namespace tarvo
