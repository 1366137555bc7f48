// What the panel offers and what it finds wrong, for printers of a few main keywords.
#include "panels/paper/PaperConflicts.h"

#include "../platform/PPDTexts.h"
#include "panels/paper/PaperOutputMenus.h"
#include "panels/paper/PaperOutputSettings.h"
#include "printer/PrinterDescription.h"
#include "settings/FinishingMaps.h"
#include "support/BuiltBundle.h"
#include "support/Entries.h"

#include <gmock/gmock.h>

#include <functional>
#include <optional>

namespace tarvo {
namespace {

using testing::ElementsAre;

const std::string Keywords =
    PickOne("MediaType", "Standard", {"Standard", "Labels", "Transparency"}) +
    PickOne("PageSize", "A4", {"A4", "A3"}) +
    PickOne("Duplex", "None", {"None", "DuplexNoTumble", "DuplexTumble"}) +
    PickOne("OutputBin", "Auto", {"Auto", "Top", "Upper", "Booklet"}) +
    PickOne("TRStaple", "None", {"None", "1StapleTL", "2StaplesL"}) +
    PickOne("TRFoldOptions", "None", {"None", "2HolePunch", "ZTriFoldOpt", "BookletFoldOpt"}) +
    PickOne("MediaColor", "White", {"White", "Blue"}) + PickOne("InputSlot", "Tray", {"Tray"}) +
    PickOne("Jog", "None", {"None", "EndOfSet"}) + PickOne("Option1", "None", {"None", "DFA"});

class PaperPrinter : public testing::Test {
protected:
    void use(const std::string& constraints, const std::string& keywords = Keywords)
    {
        printer_.emplace(PrinterOf(keywords + constraints), nullptr, InstalledFeatures, bundle_);
    }
    std::vector<std::string> found()
    {
        std::vector<std::string> texts;
        for (const auto& conflict : PaperConflicts(bundle_, settings_, &*printer_, dialog_)) {
            texts.push_back(std::to_string(static_cast<int>(conflict.control)) + " " +
                            conflict.text + " " + conflict.remedy);
        }
        return texts;
    }

    const CFBundle bundle_ = BuiltBundle();
    std::optional<PrinterDescription> printer_;
    PaperOutputSettings settings_;
    CFDictionary dialog_;
};

// The texts of a menu, the checked one in brackets.
std::vector<std::string> TextsOf(const Menu& menu)
{
    std::vector<std::string> texts;
    for (const MenuItem& item : menu) {
        texts.push_back(item.isChecked ? "[" + item.text + "]" : item.text);
    }
    return texts;
}

TEST_F(PaperPrinter, MenusHaveWhatItOffersAndWhatTheTicketSays)
{
    use("");
    EXPECT_THAT(TextsOf(JobTypeMenu(bundle_, &*printer_, 1)),
                ElementsAre("[Normal]", "Hold", "Save", "Save and Print", "Secure Print",
                            "Delayed Print", "Sample Set", "Background Forms"));
    EXPECT_EQ(TextsOf(JobTypeMenu(bundle_, &*printer_, 5)).back(), "[Fax]");
    EXPECT_EQ(TextsOf(JobTypeMenu(bundle_, &*printer_, 77)).back(), "[Unknown]");
    EXPECT_THAT(TextsOf(JobTypeMenu(bundle_, &*printer_, 1, 5)),
                testing::AllOf(testing::Contains("[Normal]"), testing::Contains("Fax")));
    EXPECT_THAT(TextsOf(JobTypeMenu(bundle_, nullptr, 9)),
                ElementsAre("Normal", "Save", "[Background Forms]"));
    EXPECT_THAT(TextsOf(OutputDestinationMenu(bundle_, &*printer_, UnsetValue)),
                ElementsAre("[Printer Default]", "Automatic", "Top Tray", "Main Tray", "Stacker 1",
                            "Booklet Tray"));
    EXPECT_THAT(TextsOf(OutputDestinationMenu(bundle_, &*printer_, 6)),
                ElementsAre("Printer Default", "Automatic", "Top Tray", "Main Tray", "Stacker 1",
                            "[Stacker 2]", "Booklet Tray"));
    use("", PickOne("Jog", "None", {"None"}));
    EXPECT_THAT(TextsOf(OutputDestinationMenu(bundle_, &*printer_, 3)),
                ElementsAre("Printer Default", "Automatic", "[Top Tray]", "Main Tray"));
    EXPECT_THAT(TextsOf(SidesMenu(bundle_, 0)).back(), "[Unknown]");
}

// name, job type, picture, key of the setup button, whether it does something
const std::tuple<const char*, std::int32_t, const char*, const char*, bool> SetupCases[] = {
    {"first",   1, "Normal-Print.gif",   "Setup...",       false},
    {"saved",   4, "Print&SaveJob.gif",  "Save Job As...", true },
    {"last",    9, "BackgroundForm.gif", "Setup...",       true },
    {"unknown", 0, "",                   "Setup...",       false},
};

TEST_F(PaperPrinter, PicturesAndTheSetupButtonFollowTheValues)
{
    for (const auto& [name, type, picture, key, hasSetup] : SetupCases) {
        EXPECT_STREQ(JobTypePicture(type), picture) << name;
        EXPECT_STREQ(SetupOfJobType(type).key, key) << name;
        EXPECT_EQ(SetupOfJobType(type).isEnabled, hasSetup) << name;
    }
    settings_.sides = 3;
    EXPECT_STREQ(SidesPicture(settings_), "2 Sided Flip on Short Edge.gif");
    settings_.sides = 4;
    EXPECT_STREQ(SidesPicture(settings_), "");
    settings_.finishing.bookletLayout = true;
    EXPECT_STREQ(SidesPicture(settings_), "2 Sided Booklet.gif");
}

TEST_F(PaperPrinter, NothingIsWrongWithWhatItCanDo)
{
    use("*UIConstraints: *MediaType Labels *Duplex\n*UIConstraints: *Option1 None *TRStaple "
        "1StapleTL\n");
    EXPECT_THAT(found(), ElementsAre());
    settings_.sides = 2;
    settings_.stock.setType(1);
    settings_.finishing.option = FinishingFamily::TwoStaples;
    settings_.finishing.twoStaples = 10;
    settings_.finishing.oneStaple = 5; // of another family: does not count
    EXPECT_THAT(found(), ElementsAre());
    settings_.finishing = FinishingChoice();
    settings_.finishing.option = UnsetValue;
    EXPECT_THAT(found(), ElementsAre());
    settings_.sides = 9;
    settings_.outputDestination = 5;
    EXPECT_THAT(found(), ElementsAre()) << "a number without a keyword";
}

struct ConflictCase {
    const char* name;
    std::function<void(PaperOutputSettings&)> choose;
    const char* constraint;
    const char* told;
};

TEST_F(PaperPrinter, WhatDoesNotGoIsToldBesideItsControlByName)
{
    const auto finish = [](std::int32_t option, std::int32_t FinishingChoice::*position,
                           std::int32_t value) {
        return [=](PaperOutputSettings& settings) {
            settings.finishing.option = option;
            settings.finishing.*position = value;
        };
    };
    // clang-format off
    const ConflictCase cases[] = {
        {"transparencies, whatever the description says", [](auto& it) { it.sides = 3; it.stock.setType(2); }, "",
         "2 “Sides: 2-Sided, Flip on Short Edge” does not go with “Type: Transparency”. Use “1-Sided”"},
        {"a choice of the paper, and any that is on", [](auto& it) { it.sides = 2; it.stock.setType(9); },
         "*MediaType Labels *Duplex",
         "2 “Duplex: DuplexNoTumble” does not go with “Media Type: Labels”. Use “1-Sided”"},
        {"the other way round", [](auto& it) { it.sides = 2; it.stock.setType(9); }, "*Duplex *MediaType Labels",
         "2 “Duplex: DuplexNoTumble” does not go with “Media Type: Labels”. Use “1-Sided”"},
        {"with what is installed", finish(9, &FinishingChoice::twoStaples, 10), "*Option1 None *TRStaple 2StaplesL",
         "3 “TRStaple: 2StaplesL” does not go with “Option1: None”. Use “Printer Default”"},
        {"holes by their number", [](auto& it) { it.finishing.option = 30; it.finishing.punch = 32; it.finishing.holes = 3; },
         "*TRFoldOptions 2HolePunch *MediaType Standard",
         "3 “TRFoldOptions: 2HolePunch” does not go with “Media Type: Standard”. Use “Printer Default”"},
        {"a part of a combination", [](auto& it) {
             it.finishing.option = 51; it.finishing.oneStaple = 5; it.finishing.zFold = 38; },
         "*TRFoldOptions ZTriFoldOpt *TRStaple",
         "3 “TRFoldOptions: ZTriFoldOpt” does not go with “TRStaple: 1StapleTL”. Use “Printer Default”"},
        {"offset", [](auto& it) { it.finishing.offset = 4; it.outputDestination = 7; }, "*Jog EndOfSet *OutputBin Booklet",
         "5 “OutputBin: Booklet” does not go with “Jog: EndOfSet”. Use “Printer Default”"},
        {"the tray, with what nobody chose", [](auto& it) { it.outputDestination = 7; },
         "*TRFoldOptions None *OutputBin Booklet",
         "5 “OutputBin: Booklet” does not go with “TRFoldOptions: None”. Use “Printer Default”"},
        {"with the dialog's own tab", [](auto& it) { it.outputDestination = 3; }, "*OutputBin Top *PageSize A3",
         "5 “OutputBin: Top” does not go with “Media Size: A3”. Use “Printer Default”"},
        {"a job type of another printer", [](auto& it) { it.jobType = Entries("JobType", 5); }, "",
         "0 This printer does not offer “Fax”. Use “Normal”"},
        {"a fold without its unit", finish(18, &FinishingChoice::fold, 19), "",
         "3 This printer does not offer “C-fold”. Use “Printer Default”"},
        {"a booklet's fold without its unit, of no family", [](auto& it) { it.finishing.bookletFold = 8; it.finishing.bookletLayout = true; }, "",
         "3 This printer does not offer “Booklet, folded and stapled”. Use “Printer Default”"},
        {"a booklet's fold of no family", [](auto& it) { it.finishing.bookletFold = 7; }, "*TRFoldOptions BookletFoldOpt *TRStaple None",
         "3 “TRFoldOptions: BookletFoldOpt” does not go with “TRStaple: None”. Use “Printer Default”"},
        {"the colour of a paper", [](auto& it) { it.stock.setColor(2); },
         "*MediaColor Blue *InputSlot Tray", "1 “MediaColor: Blue” does not go with “Media Source: Tray”. Use “Printer Default”"},
        {"a number of holes without its punch", finish(30, &FinishingChoice::punch, 32), "",
         "3 This printer does not offer “Hole punch, left or top”. Use “Printer Default”"},
        {"a family with an unknown position", finish(14, &FinishingChoice::bind, 99), "",
         "3 This printer does not offer “Bind…”. Use “Printer Default”"},
        {"a combination without positions", [](auto& it) { it.finishing.option = 51; it.finishing.zFold = 99; }, "",
         "3 This printer does not offer “Multiple Finishing…”. Use “Printer Default”"},
        {"a finishing that nobody knows", [](auto& it) { it.finishing.option = 77; }, "",
         "3 This printer does not offer “Unknown”. Use “Printer Default”"},
        {"a tray that it lacks", [](auto& it) { it.outputDestination = 6; }, "",
         "5 This printer does not offer “Stacker 2”. Use “Printer Default”"},
    };
    // clang-format on
    dialog_ = Entries("PageSize", "A3");
    for (const ConflictCase& row : cases) {
        SCOPED_TRACE(row.name);
        use(*row.constraint == '\0' ? "" : std::string("*UIConstraints: ") + row.constraint + "\n");
        settings_ = PaperOutputSettings();
        row.choose(settings_);
        EXPECT_THAT(found(), ElementsAre(row.told));
        for (const auto& conflict : PaperConflicts(bundle_, settings_, &*printer_, dialog_)) {
            ResolvePaperConflict(settings_, conflict.control);
        }
        EXPECT_THAT(found(), ElementsAre()) << "resolved";
    }
}

TEST_F(PaperPrinter, SidesOfTheDialogsOwnTabCountWhenTheyAreNewer)
{
    use("*UIConstraints: *OutputBin Booklet *Duplex None\n");
    settings_.outputDestination = 7;
    settings_.dialogSides = "None";
    dialog_ = Entries("Duplex", "DuplexTumble");
    EXPECT_THAT(found(), ElementsAre());
    settings_.dialogSides = "DuplexTumble"; // the panel's choice is the later one
    EXPECT_THAT(found(), ElementsAre(testing::StartsWith("5 “OutputBin: Booklet”")));
}

TEST_F(PaperPrinter, APrinterWithNothingChosenHasNoConflicts)
{
    for (const char* name : {"TarvoQL900", "TarvoDesk210"}) {
        ParseError error;
        printer_.emplace(
            PPDFile::Open(TARVO_SOURCE_DIR "/resources/ppd/" + std::string(name) + ".ppd", error),
            nullptr, InstalledFeatures, bundle_);
        ASSERT_NE(printer_->ppd(), nullptr) << error.reason;
        settings_ = FreshPaperOutputSettings({});
        EXPECT_THAT(found(), ElementsAre()) << name;
    }
}

TEST_F(PaperPrinter, EachControlHasOneConflictAtATime)
{
    use("*UIConstraints: *MediaType Transparency *Duplex\n*UIConstraints: *Duplex *PageSize A4\n"
        "*UIConstraints: *PageSize A4 *MediaType Transparency\n*UIConstraints: *TRStaple *Option1 "
        "None\n");
    settings_.sides = 2;
    settings_.stock.setType(2);
    EXPECT_THAT(found(), ElementsAre(testing::StartsWith("1 “Media Type: Transparency”"),
                                     testing::StartsWith("2 “Sides: 2-Sided")));
    EXPECT_TRUE(PaperConflicts(bundle_, PaperOutputSettings(), nullptr, dialog_).empty());
}

} // namespace
} // namespace tarvo
