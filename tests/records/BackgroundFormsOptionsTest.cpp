#include "records/BackgroundFormsOptions.h"

#include "../prefs/PreferenceFolderFixture.h"
#include "records/BackgroundFormsChoice.h"
#include "support/TicketText.h"

#include <algorithm>

namespace tarvo {
namespace {

namespace fs = std::filesystem;

using Names = std::vector<std::string>;

const PreferenceFolders NoFolders = {"/nowhere", {"/nowhere"}};

BackgroundFormsOptions FromTicket(const CFDictionary& ticket)
{
    return {ticket, NoFolders};
}

TEST(BackgroundFormsTicket, HasTheDriversKeysAndComesBack)
{
    CFDictionary ticket = TicketFromText(R"(UseExistingForm: 2, MergeWithString: "letter",
        CyclePages: 999999, Inches: 0, X1: -12, Y1: 34, NewFormString: "made")");
    BackgroundFormsOptions options;
    options.setUseExistingForm(FormUse::Merge);
    options.setMergeWithString("letter");
    EXPECT_EQ(options.setCyclePages(999999), 0);
    EXPECT_EQ(options.setCyclePages(1000000), -50);
    EXPECT_EQ(options.setCyclePages(-1), -50);
    options.setInches(false);
    options.setXOffset(-12);
    options.setYOffset(34);
    options.setNewFormString("made");
    EXPECT_EQ(options.asTicket(), ticket);
    EXPECT_EQ(FromTicket(ticket), options);
    ticket.set("FullPrecision", true);
    ticket.set("X1", -129);
    ticket.set("Y1", 340);
    EXPECT_EQ(FromTicket(ticket), options);
}

TEST(BackgroundFormsTicket, LeavesOutNamesThatNameNothing)
{
    CFDictionary defaults =
        TicketFromText("UseExistingForm: 1, CyclePages: 0, Inches: 1, X1: 0, Y1: 0");
    BackgroundFormsOptions options;
    options.setMergeWithString("letter");
    EXPECT_EQ(options.asTicket(), defaults);
    EXPECT_EQ(FromTicket(TicketFromText(R"(MergeWithString: 1, Inches: true, X1: "1")")),
              BackgroundFormsOptions());
    defaults.set("UseExistingForm", 2);
    options.setUseExistingForm(FormUse::Merge);
    options.setMergeWithString("");
    EXPECT_EQ(options.asTicket(), defaults);
}

class FormHistoryFiles : public PreferenceFolderFixture {
protected:
    // Accepts the dialog with that form to merge with, and saves.
    bool merge(BackgroundFormsOptions& options, const std::string& form)
    {
        EXPECT_EQ(AcceptBackgroundForms(options, {.mergesWithForm = true, .existingForm = form}),
                  0);
        return options.saveHistory(folders_, failure_);
    }
    Names existing() const { return BackgroundFormsOptions(folders_).existingForms().names(); }
};

TEST_F(FormHistoryFiles, HoldTheNewestFirstAndNoneTwice)
{
    BackgroundFormsOptions options(folders_);
    EXPECT_EQ(options, BackgroundFormsOptions()); // no file, no names
    for (const char* form : {"a", "b", "a", "A"}) {
        ASSERT_TRUE(merge(options, form)) << failure_.message();
    }
    EXPECT_EQ(existing(), (Names{"A", "a", "b"}));
    for (int form = 0; form < 30; ++form) {
        options.setNewFormString(std::to_string(form));
        options.rememberForms();
    }
    ASSERT_TRUE(options.saveHistory(folders_, failure_));
    const Names made = BackgroundFormsOptions(folders_).newForms().names();
    EXPECT_EQ(made.size(), 25U);
    EXPECT_EQ(made.front(), "29");
    EXPECT_EQ(made.back(), "5");
    EXPECT_EQ(FromTicket(options.asTicket()).newForms().names(), Names());
    EXPECT_EQ(BackgroundFormsOptions(options.asTicket(), folders_), options);
}

TEST_F(FormHistoryFiles, StartWithThoseOfTheSite)
{
    put(sitePath("TarvoFeatures.plist", 1), R"(<plist version="1.0"><dict>
        <key>ExistingFormsArray</key>
        <array><string>x</string><integer>1</integer><string></string><string>y</string>
            <string>x</string></array>
        <key>NewFormsArray</key><string>no array</string>
        </dict></plist>)");
    BackgroundFormsOptions options(folders_);
    EXPECT_EQ(options.existingForms().names(), (Names{"x", "y"}));
    EXPECT_EQ(options.newForms().names(), Names());
    ASSERT_TRUE(merge(options, "z"));
    EXPECT_EQ(existing(), (Names{"z", "x", "y"}));
    // The user's own file, even an empty one, ends what the site gives.
    put(userPath("com.tarvo.print.backgroundforms"), "<plist version=\"1.0\"><dict/></plist>");
    EXPECT_EQ(existing(), Names());
}

TEST_F(FormHistoryFiles, KeepWhatAnotherProgramStoresMeanwhile)
{
    putNumber(userPath("com.tarvo.print.backgroundforms"), "other", 1);
    BackgroundFormsOptions first(folders_);
    BackgroundFormsOptions second(folders_);
    ASSERT_TRUE(merge(first, "a"));
    ASSERT_TRUE(merge(second, "b"));
    ASSERT_TRUE(merge(first, "c"));
    EXPECT_EQ(first.existingForms().names(), (Names{"c", "b", "a"}));
    ASSERT_TRUE(second.saveHistory(folders_, failure_)); // has nothing to add
    EXPECT_EQ(existing(), (Names{"c", "b", "a"}));
    const auto root = CopyUserPreferences(folders_, "com.tarvo.print.backgroundforms");
    EXPECT_EQ(root.value_or(CFDictionary()).int32("other"), 1);
}

TEST_F(FormHistoryFiles, ThatCannotBeSavedStayInTheDialog)
{
    put(folders_.user, "a file where the folder goes");
    BackgroundFormsOptions options(folders_);
    EXPECT_FALSE(merge(options, "a"));
    EXPECT_EQ(failure_.path, folders_.user);
    EXPECT_EQ(options.existingForms().names(), Names{"a"});
    fs::remove(folders_.user);
    ASSERT_TRUE(options.saveHistory(folders_, failure_));
    EXPECT_EQ(existing(), Names{"a"});
}

struct AcceptCase {
    const char* name;
    BackgroundFormsChoice choice;
    bool isAcceptable;
};

const std::string TooLong(256, 'x');

// clang-format off
const AcceptCase AcceptCases[] = {
    {"blanks for a name",            {.newForm = "  "},                                                    false},
    {"a new form",                   {.newForm = std::string(255, 'x')},                                   true },
    {"a new form's name too long",   {.newForm = TooLong},                                                 false},
    {"a form's name too long",       {.mergesWithForm = true, .existingForm = TooLong, .newForm = "a"},    false},
    {"too many pages",               {.mergesWithForm = true, .existingForm = "a", .cyclePages = 1000000}, false},
    {"fewer than none",              {.mergesWithForm = true, .existingForm = "a", .cyclePages = -1},      false},
    {"what counts for a merge only", {.existingForm = "b", .cyclePages = -1, .newForm = "a"},              true },
    {"what counts for a new form",   {.mergesWithForm = true, .existingForm = "a", .newForm = "b"},        true },
};
// clang-format on

TEST(BackgroundFormsDialog, AcceptsWhatTheDriverTakes)
{
    for (const AcceptCase& row : AcceptCases) {
        SCOPED_TRACE(row.name);
        BackgroundFormsOptions options;
        options.setMergeWithString("before");
        options.setNewFormString("before");
        const BackgroundFormsOptions before = options;
        EXPECT_EQ(IsAcceptable(row.choice), row.isAcceptable);
        EXPECT_EQ(AcceptBackgroundForms(options, row.choice), row.isAcceptable ? 0 : -50);
        if (!row.isAcceptable) {
            EXPECT_EQ(options, before);
            continue;
        }
        BackgroundFormsChoice expected = row.choice; // but for what does not count
        (expected.mergesWithForm ? expected.newForm : expected.existingForm) = "";
        expected.cyclePages = std::max(expected.cyclePages, 0);
        EXPECT_EQ(ChoiceFromBackgroundForms(options), expected);
        const Names used{expected.existingForm + expected.newForm};
        EXPECT_EQ(options.existingForms().names(), expected.mergesWithForm ? used : Names());
        EXPECT_EQ(options.newForms().names(), expected.mergesWithForm ? Names() : used);
    }
}

TEST(BackgroundFormsDialog, SwitchesTheUnitToTheNearest)
{
    for (const auto& [hundredths, tenths] : {std::pair(1, 3), std::pair(-1, -3), std::pair(25, 64),
                                             std::pair(2147483647, 2147483647)}) {
        BackgroundFormsChoice choice = {.xOffset = hundredths, .yOffset = -100};
        SwitchOffsetUnit(choice, true);
        EXPECT_EQ(choice.xOffset, hundredths);
        SwitchOffsetUnit(choice, false);
        EXPECT_EQ(choice.xOffset, tenths);
        EXPECT_EQ(choice.yOffset, -254);
        SwitchOffsetUnit(choice, true);
        EXPECT_EQ(choice.yOffset, -100);
    }
}

} // namespace
} // namespace tarvo
