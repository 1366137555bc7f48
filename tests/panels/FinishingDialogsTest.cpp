#include "panels/finishing/FinishingDialogs.h"

#include "panels/finishing/FinishedSetView.h"
#include "records/FinishingMenu.h"
#include "support/BuiltBundle.h"
#include "support/DialogScript.h"
#include "support/FinishedSets.h"

#include <gmock/gmock.h>
#include <gtkmm/checkbutton.h>
#include <gtkmm/entry.h>
#include <gtkmm/radiobutton.h>
#include <gtkmm/settings.h>
#include <gtkmm/spinbutton.h>
#include <gtkmm/viewport.h>

#include <fstream>

namespace tarvo {
namespace {

using Finishing = FinishingChoice;

// What the dialog gives when the user does that in it.
std::optional<Finishing> AfterDialog(std::int32_t option, const FinishedSet& current,
                                     const std::function<void(Gtk::Dialog&)>& act)
{
    const DialogAnswer answer(act);
    return RunFinishingDialog(nullptr, BuiltBundle(), option, current, AllFinishingOffers);
}

struct PositionCase {
    const char* window;
    std::int32_t option;
    std::int32_t Finishing::*position;
    std::int32_t second; // the job's own
    std::int32_t last;
    std::size_t count;
};

constexpr PositionCase PositionCases[] = {
    {"OneStaple",        4,  &Finishing::oneStaple,    6,  8,  4},
    {"TwoStaples",       9,  &Finishing::twoStaples,   11, 13, 4},
    {"CenterStaple",     25, &Finishing::centerStaple, 27, 29, 4},
    {"Bind",             14, &Finishing::bind,         16, 16, 2},
    {"Fold",             18, &Finishing::fold,         20, 20, 2},
    {"ZFold",            36, &Finishing::zFold,        39, 39, 2},
    {"AdvancedFold",     40, &Finishing::fold,         42, 48, 8},
    {"BookletFinishing", 24, &Finishing::bookletFold,  8,  8,  2},
};

TEST(PositionDialogs, OfferEachPositionWithItsPicture)
{
    for (const auto& row : PositionCases) {
        SCOPED_TRACE(row.window);
        const FinishedSet current = SetWith(row.option, row.position, row.second);
        const auto chosen = AfterDialog(row.option, current, [&row](Gtk::Dialog& dialog) {
            EXPECT_EQ(NameInDescription(dialog), row.window);
            EXPECT_THAT(AccessibilityFaults(dialog), testing::IsEmpty());
            const auto buttons = AllOf<Gtk::RadioButton>(dialog);
            const auto pictures = AllOf<FinishedSetView>(dialog);
            EXPECT_EQ(buttons.size(), row.count);
            EXPECT_EQ(pictures.size(), row.count);
            EXPECT_TRUE(buttons[1]->get_active());
            EXPECT_EQ(buttons[1]->get_accessible()->get_description(),
                      DescribeFinishedSet(pictures[1]->shown(), BuiltBundle()));
            EXPECT_EQ(pictures[1]->shown().finishing.*row.position, row.second);
            buttons.back()->set_active(true);
            dialog.response(Gtk::RESPONSE_OK);
        });
        EXPECT_EQ(chosen, SetWith(row.option, row.position, row.last).finishing);
    }
}

TEST(PositionDialogs, StartAtTheFirstAndTakeTheKeyboard)
{
    const FinishedSet former = SetWith(14, &Finishing::bind, 15);
    const auto chosen = AfterDialog(9, former, [](Gtk::Dialog& dialog) {
        const auto buttons = AllOf<Gtk::RadioButton>(dialog);
        EXPECT_TRUE(buttons.front()->get_active() && buttons.front()->is_focus());
        PressKey(dialog, GDK_KEY_Down);
        EXPECT_TRUE(buttons[1]->get_active());
        PressKey(dialog, LetterOf(*buttons[2]), GDK_MOD1_MASK);
        for (auto* button : AllOf<Gtk::Button>(dialog)) {
            if (button->get_label() == "_OK") {
                PressKey(dialog, LetterOf(*button), GDK_MOD1_MASK);
            }
        }
    });
    EXPECT_EQ(chosen, SetWith(9, &Finishing::twoStaples, 12).finishing) << "and no binding";
}

TEST(PositionDialogs, WaitForAChoiceWhereThePositionIsUnknown)
{
    const auto chooseFirst = [](Gtk::Dialog& dialog) {
        const auto buttons = AllOf<Gtk::RadioButton>(dialog);
        for (const auto* button : buttons) {
            EXPECT_FALSE(button->get_active());
        }
        EXPECT_FALSE(CanPressOk(dialog)) << NameInDescription(dialog);
        EXPECT_TRUE(buttons.front()->is_focus());
        PressKey(dialog, GDK_KEY_space);
        EXPECT_TRUE(CanPressOk(dialog));
        dialog.response(Gtk::RESPONSE_OK);
    };
    EXPECT_EQ(AfterDialog(4, SetWith(4, &Finishing::oneStaple, 99), chooseFirst),
              SetWith(4, &Finishing::oneStaple, 5).finishing);
    const FinishedSet booklet = SetWith(24, &Finishing::bookletFold, 99);
    EXPECT_EQ(AfterDialog(24, booklet, chooseFirst),
              SetWith(24, &Finishing::bookletFold, 7).finishing);
    const DialogAnswer answer(chooseFirst);
    EXPECT_EQ(RunModalBookletFinishingDialog(nullptr, BuiltBundle(), booklet, true), 1);
}

TEST(CustomFinishing, IsNamedByTheUser)
{
    FinishedSet current = SetWith(14, &Finishing::bind, 15);
    current.finishing.customText = "Trim";
    const auto chosen = AfterDialog(22, current, [](Gtk::Dialog& dialog) {
        AllOf<Gtk::Entry>(dialog).front()->set_text(std::string(300, 'x'));
        dialog.response(Gtk::RESPONSE_OK);
    });
    ASSERT_TRUE(chosen);
    EXPECT_EQ(chosen->option, 22);
    EXPECT_EQ(chosen->bind, 0);
    EXPECT_EQ(chosen->customText, std::string(255, 'x'));
    EXPECT_EQ(AfterDialog(22, current, Respond(Gtk::RESPONSE_CANCEL)), std::nullopt);
}

TEST(HolePunchDialog, TakesSideAndNumber)
{
    FinishedSet current = SetWith(30, &Finishing::punch, 34);
    current.finishing.holes = 3;
    const auto chosen = AfterDialog(30, current, [](Gtk::Dialog& dialog) {
        EXPECT_THAT(AccessibilityFaults(dialog), testing::IsEmpty());
        auto* holes = FindWidget<Gtk::ComboBox>(dialog, "TPDE903");
        EXPECT_EQ(ShownText(*FindWidget<Gtk::ComboBox>(dialog, "TPDE901")),
                  "Hole punch, bottom or left");
        EXPECT_EQ(ShownText(*holes), "2 Holes");
        EXPECT_EQ(holes->get_model()->children().size(), 3U);
        holes->set_active(1);
        EXPECT_EQ(AllOf<FinishedSetView>(dialog).front()->shown().finishing.holes, 4);
        dialog.response(Gtk::RESPONSE_OK);
    });
    current.finishing.holes = 4;
    EXPECT_EQ(chosen, current.finishing);
}

TEST(HolePunchDialog, KeepsAnUnknownSideAndStoresTheUsualNumberForNone)
{
    FinishedSet current = SetWith(30, &Finishing::punch, 49);
    current.finishing.holes = 0;
    const DialogAnswer answer([](Gtk::Dialog& dialog) {
        EXPECT_EQ(ShownText(*FindWidget<Gtk::ComboBox>(dialog, "TPDE901")), "");
        EXPECT_FALSE(FindWidget<Gtk::Widget>(dialog, "TPDE903")->get_visible());
        dialog.response(Gtk::RESPONSE_OK);
    });
    const auto chosen = RunFinishingDialog(nullptr, BuiltBundle(), 30, current, {});
    current.finishing.holes = 4;
    EXPECT_EQ(chosen, current.finishing);
}

TEST(HolePunchDialog, KeepsAnUnknownNumberOfHolesAndSoDoesACombination)
{
    FinishedSet current = SetWith(49, &Finishing::punch, 34);
    current.finishing.oneStaple = 6;
    current.finishing.holes = 77;
    for (const auto& [option, menu] : {
             std::pair(30, "TPDE903"), {49, "TPDE1010"}
    }) {
        const auto chosen =
            AfterDialog(option, current, [menu = menu, option = option](Gtk::Dialog& dialog) {
                EXPECT_EQ(ShownText(*FindWidget<Gtk::ComboBox>(dialog, menu)), "") << option;
                dialog.response(Gtk::RESPONSE_OK);
            });
        EXPECT_EQ(chosen, ChooseFinishing(current.finishing, option, 34));
    }
}

TEST(MultipleFinishingDialog, CombinesAtLeastTwoParts)
{
    const auto chosen =
        AfterDialog(49, SetWith(9, &Finishing::twoStaples, 13), [](Gtk::Dialog& dialog) {
            EXPECT_THAT(AccessibilityFaults(dialog), testing::IsEmpty());
            const auto& ok = *FindWidget<Gtk::Button>(dialog, "TPDE1099");
            auto& staples = *FindWidget<Gtk::ComboBox>(dialog, "TPDE1005");
            auto& punchPosition = *FindWidget<Gtk::ComboBox>(dialog, "TPDE1008");
            EXPECT_EQ(ShownText(staples), "2 staples, right or bottom");
            EXPECT_FALSE(ok.get_sensitive() || punchPosition.get_sensitive());
            FindWidget<Gtk::CheckButton>(dialog, "TPDE1007")->set_active(true);
            EXPECT_TRUE(ok.get_sensitive() && punchPosition.get_sensitive());
            punchPosition.set_active(1);
            FindWidget<Gtk::RadioButton>(dialog, "TPDE1002")->set_active(true);
            EXPECT_EQ(ShownText(staples), "1 staple, top left or top right");
            staples.set_active(3);
            FindWidget<Gtk::RadioButton>(dialog, "TPDE1001")->set_active(true);
            EXPECT_FALSE(ok.get_sensitive() || staples.get_sensitive());
            FindWidget<Gtk::RadioButton>(dialog, "TPDE1004")->set_active(true);
            FindWidget<Gtk::CheckButton>(dialog, "TPDE1012")->set_active(true);
            FindWidget<Gtk::ComboBox>(dialog, "TPDE1013")->set_active(1);
            const auto& shown = AllOf<FinishedSetView>(dialog).front()->shown().finishing;
            EXPECT_EQ(shown.option, 50);
            dialog.response(Gtk::RESPONSE_OK);
        });
    Finishing expected;
    expected.option = 50;
    expected.centerStaple = 26;
    expected.punch = 33;
    expected.zFold = 39;
    EXPECT_EQ(chosen, expected);
}

TEST(MultipleFinishingDialog, HidesWhatThePrinterLacks)
{
    const std::vector<FinishingOffer> offers = {
        {9,  "2 Staples...", {10}    },
        {36, "Z-Fold...",    {38, 39}},
    };
    const DialogAnswer answer([](Gtk::Dialog& dialog) {
        EXPECT_EQ(AllOf<Gtk::RadioButton>(dialog).size(), 2U);
        EXPECT_FALSE(FindWidget<Gtk::Widget>(dialog, "TPDE1007")->get_visible());
        EXPECT_FALSE(FindWidget<Gtk::Widget>(dialog, "TPDE1009")->get_visible());
        EXPECT_TRUE(FindWidget<Gtk::Widget>(dialog, "TPDE1012")->get_visible());
        dialog.response(Gtk::RESPONSE_DELETE_EVENT);
    });
    EXPECT_EQ(RunFinishingDialog(nullptr, BuiltBundle(), 52, FinishedSet(), offers), std::nullopt);
}

TEST(OffsetDialog, StoresWhatItShows)
{
    FinishedSet current = SetWith(9, &Finishing::twoStaples, 10);
    current.finishing.slipSheet = 2;
    const auto run = [&current](const std::function<void(Gtk::Dialog&)>& act) {
        const DialogAnswer answer([&act](Gtk::Dialog& dialog) {
            EXPECT_THAT(AccessibilityFaults(dialog), testing::IsEmpty());
            act(dialog);
            dialog.response(Gtk::RESPONSE_OK);
        });
        return RunOffsetSetupDialog(nullptr, BuiltBundle(), current, {}).value();
    };
    const auto press = [](Gtk::Dialog& dialog, const char* name, bool isOn) {
        FindWidget<Gtk::ToggleButton>(dialog, name)->set_active(isOn);
    };
    const Finishing subsets = run([&press](Gtk::Dialog& dialog) {
        EXPECT_TRUE(FindWidget<Gtk::ToggleButton>(dialog, "TPDE1101")->get_active());
        EXPECT_FALSE(FindWidget<Gtk::Widget>(dialog, "TPDE1106")->get_sensitive());
        press(dialog, "TPDE1104", true);
        press(dialog, "TPDE1106", true);
        auto* pages = FindWidget<Gtk::SpinButton>(dialog, "TPDE1107");
        EXPECT_TRUE(pages->get_sensitive());
        pages->set_value(10'000);
        press(dialog, "TPDE1108", false);
    });
    EXPECT_EQ(subsets.offset, 4);
    EXPECT_EQ(subsets.offsetSubset, 1);
    EXPECT_EQ(subsets.pagesPerSubset, 9999);
    EXPECT_EQ(subsets.slipSheet, 1);
    EXPECT_EQ(subsets.twoStaples, 10);
    current.finishing = subsets;
    const Finishing sets = run([&press](Gtk::Dialog& dialog) { press(dialog, "TPDE1103", true); });
    EXPECT_EQ(sets.offset, 3);
    EXPECT_EQ(sets.offsetSubset, 0);
    EXPECT_EQ(sets.pagesPerSubset, 9999) << "for when there are subsets again";
}

FinishedSet SetWithOffset(std::int32_t offset, std::int32_t subset, std::int32_t pages)
{
    FinishedSet set = SetWith(0, &Finishing::offset, offset);
    set.finishing.offsetSubset = subset;
    set.finishing.pagesPerSubset = pages;
    return set;
}

TEST(OffsetDialog, LeavesWhatNobodyTouches)
{
    for (const FinishedSet& set : {SetWithOffset(2, 0, 25), SetWithOffset(4, 1, 20'000),
                                   SetWithOffset(0, 7, 0), SetWithOffset(9, 1, -3)}) {
        const DialogAnswer answer(Respond(Gtk::RESPONSE_OK));
        EXPECT_EQ(RunOffsetSetupDialog(nullptr, BuiltBundle(), set, {}), set.finishing);
    }
}

TEST(OffsetDialog, StoresThePagesItShowsWhenTheOffsetComesToHaveSubsets)
{
    for (const auto& [set, button] : {
             std::pair(SetWithOffset(2, 1, 0), "TPDE1104"), {SetWithOffset(4, 0, 0), "TPDE1106"}
    }) {
        const DialogAnswer answer([button = button](Gtk::Dialog& dialog) {
            FindWidget<Gtk::ToggleButton>(dialog, button)->set_active(true);
            EXPECT_EQ(FindWidget<Gtk::SpinButton>(dialog, "TPDE1107")->get_text(), "1");
            dialog.response(Gtk::RESPONSE_OK);
        });
        EXPECT_EQ(RunOffsetSetupDialog(nullptr, BuiltBundle(), set, {}),
                  SetWithOffset(4, 1, 1).finishing)
            << button;
    }
}

TEST(OffsetDialog, TakesTheNumberThatIsBeingTyped)
{
    for (const auto& [text, taken] : {
             std::pair("300", 300), {"", 25}
    }) {
        const FinishedSet set = SetWithOffset(4, 1, 25);
        const DialogAnswer answer([text = text](Gtk::Dialog& dialog) {
            auto* pages = FindWidget<Gtk::SpinButton>(dialog, "TPDE1107");
            pages->grab_focus();
            pages->set_text(text);
            PressKey(dialog, LetterOf(*FindWidget<Gtk::Button>(dialog, "TPDE1199")), GDK_MOD1_MASK);
        });
        EXPECT_EQ(RunOffsetSetupDialog(nullptr, BuiltBundle(), set, {}),
                  SetWithOffset(4, 1, taken).finishing);
    }
}

TEST(OffsetDialog, LeavesOutWhatIsNotInstalled)
{
    FinishedSet current;
    current.finishing.offset = 7;
    const DialogAnswer answer([](Gtk::Dialog& dialog) {
        EXPECT_TRUE(AllOf<Gtk::RadioButton>(dialog).empty());
        FindWidget<Gtk::ToggleButton>(dialog, "TPDE1108")->set_active(true);
        dialog.response(Gtk::RESPONSE_OK);
    });
    const auto chosen = RunOffsetSetupDialog(nullptr, BuiltBundle(), current, {false, true});
    current.finishing.slipSheet = 2;
    EXPECT_EQ(chosen, current.finishing) << "the offset as it was";
}

TEST(BookletFinishingDialog, OffersNoFoldingOnlyToALayout)
{
    const FinishedSet current;
    for (const bool offersNone : {false, true}) {
        const DialogAnswer answer([offersNone](Gtk::Dialog& dialog) {
            const auto buttons = AllOf<Gtk::RadioButton>(dialog);
            EXPECT_EQ(buttons.size(), offersNone ? 3U : 2U);
            EXPECT_TRUE(buttons.front()->get_active());
            dialog.response(Gtk::RESPONSE_OK);
        });
        EXPECT_EQ(RunModalBookletFinishingDialog(nullptr, BuiltBundle(), current, offersNone),
                  offersNone ? 1 : 7);
    }
}

TEST(FinishingDialogs, FitANarrowScreenWithLargeText)
{
    constexpr int NarrowScreen = 1024;
    constexpr int UsualDensity = 96 * 1024; // of text, in 1024ths of a dot per inch
    auto density = Gtk::Settings::get_default()->property_gtk_xft_dpi();
    density = 2 * UsualDensity;
    const CFBundle german = BuiltBundle("de");
    const auto measure = [](Gtk::Dialog& dialog) {
        int least = 0;
        int natural = 0;
        AllOf<Gtk::Viewport>(dialog).front()->get_child()->get_preferred_width(least, natural);
        EXPECT_LT(least, NarrowScreen - 40) << NameInDescription(dialog);
        dialog.response(Gtk::RESPONSE_CANCEL);
    };
    for (const FinishingOffer& offer : AllFinishingOffers) {
        const DialogAnswer answer(measure);
        RunFinishingDialog(nullptr, german, offer.option, FinishedSet(), AllFinishingOffers);
    }
    const DialogAnswer answer(measure);
    RunOffsetSetupDialog(nullptr, german, FinishedSet(), {});
    density = UsualDensity;
}

TEST(FinishingDialogs, ChangeNothingWithoutTheirDescription)
{
    for (const char* description : {"", "<interface/>"}) {
        const BundleCopy copy;
        const CFBundle bundle = copy.bundle();
        std::ofstream(copy.resource("Finishing.ui")) << description;
        const FinishedSet current;
        for (const std::int32_t option : {4, 30, 49, 0, 53}) {
            EXPECT_EQ(RunFinishingDialog(nullptr, bundle, option, current, AllFinishingOffers),
                      std::nullopt);
        }
        EXPECT_EQ(RunOffsetSetupDialog(nullptr, bundle, current, {}), std::nullopt);
        EXPECT_EQ(RunModalBookletFinishingDialog(nullptr, bundle, current, true), std::nullopt);
    }
}

} // namespace
} // namespace tarvo
