// The Paper/Output panel and its dialogs with their widgets.
#include "../platform/PPDTexts.h"
#include "PanelWidgets.h"
#include "panels/finishing/FinishedSetView.h"
#include "panels/paper/BackgroundFormsDialog.h"
#include "panels/paper/PaperOutputPanel.h"
#include "panels/paper/SaveJobAsDialog.h"
#include "panels/toolkit/WidgetTexts.h"
#include "printer/PrinterDescription.h"
#include "records/BackgroundFormsOptions.h"
#include "support/Entries.h"

#include <glibmm/datetime.h>
#include <glibmm/main.h>
#include <gmock/gmock.h>
#include <gtkmm/button.h>
#include <gtkmm/calendar.h>
#include <gtkmm/comboboxtext.h>
#include <gtkmm/entry.h>
#include <gtkmm/messagedialog.h>
#include <gtkmm/radiobutton.h>
#include <gtkmm/spinbutton.h>
#include <gtkmm/togglebutton.h>

#include <ctime>
#include <limits>

namespace tarvo {
namespace {

using testing::IsEmpty;

const std::string Keywords = PickOne("Duplex", "None", {"None", "DuplexNoTumble", "DuplexTumble"}) +
                             PickOne("OutputBin", "Auto", {"Auto", "Booklet"}) +
                             PickOne("MediaType", "Bond", {"Bond", "Labels"}) +
                             PickOne("InputSlot", "Tray", {"Tray"}) +
                             "*UIConstraints: *OutputBin Booklet *Duplex None\n"
                             "*UIConstraints: *MediaType Labels *InputSlot Tray\n";

class PaperPanel : public PanelWidgets {
protected:
    void open()
    {
        panel_ = start(GetPaperOutputPanelInterface);
        EXPECT_EQ(panel_->open(), StatusOk);
        window_.show();
        pane_.show();
    }
    CFPropertyList written(std::string_view key)
    {
        EXPECT_EQ(panel_->sync(&session_, SyncDirection::ToTicket), StatusOk);
        return stored(key);
    }
    // The button of a notice; null when there is none to be seen.
    Gtk::Button* remedy(const char* place)
    {
        const auto buttons = AllOf<Gtk::Button>(control<Gtk::Box>(place));
        return buttons.empty() || !buttons.back()->get_mapped() ? nullptr : buttons.back();
    }

    PrinterDescription printer_{PrinterOf(Keywords), nullptr, InstalledFeatures, *bundle_};
    std::unique_ptr<Panel> panel_;
};

TEST_F(PaperPanel, ShowsTheTicketAndStoresTheUsersChoice)
{
    ticket_->setItem("x", JobTypeKey, Entries("JobType", 5)); // not offered
    ticket_->setItem("x", DuplexKey, 2);
    open();
    EXPECT_EQ(shown("Tshl201"), "Fax");
    EXPECT_EQ(shown("Tshl220"), "2-Sided, Flip on Long Edge");
    EXPECT_EQ(shown("Tshl240"), "Printer Default");
    choose("Tshl201", "Save");
    choose("Tshl220", "1-Sided");
    choose("Tshl240", "Main Tray");
    choose("Tshl250", "Grayscale");
    EXPECT_EQ(written(JobTypeKey), CFPropertyList(Entries("JobType", 3)));
    EXPECT_EQ(stored(DuplexKey), CFPropertyList(1));
    EXPECT_EQ(*ticket_->ppdDictionary().get<std::string>("Duplex"), "None");
    EXPECT_EQ(stored(OutputDestinationKey), CFPropertyList(4));
    EXPECT_EQ(stored(OutputColorKey), CFPropertyList(1));

    ticket_->setItem("x", DuplexKey, 3);
    panel_->sync(&session_, SyncDirection::FromTicket);
    EXPECT_EQ(shown("Tshl220"), "2-Sided, Flip on Short Edge");
    choose("Tshl201", "Fax"); // as the ticket had it
    EXPECT_EQ(panel_->jobType()->int32("JobType"), 5);
    EXPECT_EQ(panel_->sync(nullptr, SyncDirection::ToTicket), -30879);
    EXPECT_EQ(panel_->open(), -9530);
}

TEST_F(PaperPanel, ShowsTheTicketsStockAndKeepsWhatNoMenuHas)
{
    const CFDictionary stock = Entries("Color", 2, "Type", 77);
    ticket_->setItem("x", JobLevelStockKey, stock);
    open();
    EXPECT_THAT(control<Gtk::Label>("Tshl212").get_text().raw(), testing::HasSubstr("Blue"));
    EXPECT_EQ(written(JobLevelStockKey), CFPropertyList(stock));
}

TEST_F(PaperPanel, TheSetupButtonFollowsTheJobType)
{
    open();
    auto& setup = control<Gtk::Button>("Tshl203");
    EXPECT_FALSE(setup.get_sensitive());
    for (const auto& [type, label] : {
             std::pair("Save", "Save Job As…"), {"Secure Print", "Setup…"}
    }) {
        choose("Tshl201", type);
        EXPECT_TRUE(setup.get_sensitive());
        EXPECT_EQ(dynamic_cast<Gtk::Label*>(setup.get_child())->get_text(), label);
        EXPECT_THAT(AccessibilityFaults(setup), IsEmpty()) << "a letter for the new label";
    }
    choose("Tshl201", "Hold");
    EXPECT_FALSE(setup.get_sensitive());
}

TEST_F(PaperPanel, AConflictIsSeenAndResolvedAndChangesNothingByItself)
{
    open();
    EXPECT_EQ(remedy("Tshl2206"), nullptr);
    choose("Tshl240", "Booklet Tray");
    ASSERT_NE(remedy("Tshl2206"), nullptr);
    EXPECT_EQ(remedy("Tshl2203"), nullptr) << "beside one control only";
    EXPECT_EQ(written(OutputDestinationKey), CFPropertyList(7)) << "nothing silently";
    EXPECT_EQ(panel_->conflicts(),
              std::vector<std::string>{"“OutputBin: Booklet” does not go with “Duplex: None”."});
    EXPECT_THAT(AccessibilityFaults(control<Gtk::Box>("Tshl2206")), IsEmpty());
    remedy("Tshl2206")->grab_focus();
    remedy("Tshl2206")->clicked();
    EXPECT_EQ(remedy("Tshl2206"), nullptr);
    ASSERT_NE(window_.get_focus(), nullptr);
    EXPECT_TRUE(window_.get_focus()->is_ancestor(control<Gtk::ComboBox>("Tshl240")))
        << "the keyboard goes on where the choice was";
    EXPECT_EQ(shown("Tshl240"), "Printer Default");
    choose("Tshl240", "Booklet Tray");
    choose("Tshl220", "2-Sided, Flip on Long Edge"); // the other one changes
    EXPECT_EQ(remedy("Tshl2206"), nullptr);
    EXPECT_THAT(panel_->conflicts(), IsEmpty());
}

TEST_F(PaperPanel, ResolvingAConflictOfTheStockLeadsToItsMenu)
{
    ticket_->setItem("x", JobLevelStockKey, Entries("Type", 9)); // labels
    ticket_->ppdDictionary().set("InputSlot", "Tray");
    open();
    ASSERT_NE(remedy("Tshl2202"), nullptr);
    remedy("Tshl2202")->grab_focus();
    remedy("Tshl2202")->clicked();
    EXPECT_EQ(remedy("Tshl2202"), nullptr);
    EXPECT_EQ(window_.get_focus(), &control<Gtk::Button>("Tshl210"));
}

TEST_F(PaperPanel, HasNoOffsetAtAPrinterWithoutOne)
{
    const PrinterDescription plain(PrinterOf(Keywords), nullptr, featureMap, *bundle_);
    open();
    EXPECT_FALSE(control<Gtk::Button>("Tshl232").get_visible());
}

TEST_F(PaperPanel, ASecureJobHasThePasscodeOfItsDialog)
{
    open();
    choose("Tshl201", "Secure Print");
    for (const int response :
         {Gtk::RESPONSE_CANCEL, Gtk::RESPONSE_DELETE_EVENT, Gtk::RESPONSE_OK}) {
        const DialogAnswer answer([response](Gtk::Dialog& dialog) {
            EXPECT_THAT(AccessibilityFaults(dialog), IsEmpty());
            EXPECT_FALSE(FindWidget<Gtk::Entry>(dialog, "TPDE2")->get_mapped()) << "of a saved job";
            auto* field = FindWidget<Gtk::Entry>(dialog, "TPDE5");
            field->set_text("4711");
            EXPECT_FALSE(field->get_visibility());
            FindWidget<Gtk::Entry>(dialog, "TPDE6")->set_text("4711");
            dialog.response(response);
        });
        control<Gtk::Button>("Tshl203").clicked();
        EXPECT_EQ(written(JobTypeKey),
                  response == Gtk::RESPONSE_OK
                      ? CFPropertyList(Entries("JobType", 6, "SecurePrintPassword", "4711"))
                      : CFPropertyList(Entries("JobType", 6)))
            << response;
    }
}

TEST_F(PaperPanel, FinishingIsChosenInADialogThatCanBeCancelledAndChangedLater)
{
    ticket_->setItem("x", Staple1ValueKey, 5); // of another family, left over
    open();
    const auto answerWith = [](const char* radio, int response, const std::function<void()>& act) {
        bool isAnswered = false;
        const DialogAnswer answer([&](Gtk::Dialog& dialog) {
            isAnswered = true;
            EXPECT_THAT(AccessibilityFaults(dialog), IsEmpty());
            for (Gtk::RadioButton* button : AllOf<Gtk::RadioButton>(dialog)) {
                const auto labels = AllOf<Gtk::Label>(*button);
                if (!labels.empty() && labels.back()->get_text() == radio) {
                    button->set_active(true);
                }
            }
            dialog.response(response);
        });
        act();
        EXPECT_TRUE(TurnUntil([&] { return isAnswered; }));
    };
    answerWith("2 staples, right or bottom", Gtk::RESPONSE_CANCEL,
               [this] { choose("Tshl230", "2 Staples…"); });
    EXPECT_EQ(shown("Tshl230"), "Printer Default") << "the family is as it was";
    EXPECT_FALSE(control<Gtk::Button>("Tshl233").get_sensitive());
    answerWith("2 staples, left or top", Gtk::RESPONSE_OK,
               [this] { choose("Tshl230", "2 Staples…"); });
    EXPECT_EQ(shown("Tshl230"), "2 Staples…");
    EXPECT_EQ(control<Gtk::Label>("Tshl231").get_text(),
              "2 staples, left or top\nOffset: Printer Default");
    EXPECT_EQ(written(FinishingOptionsKey), CFPropertyList(9));
    EXPECT_EQ(stored(Staple2ValueKey), CFPropertyList(10));
    EXPECT_EQ(stored(Staple1ValueKey), CFPropertyList(0)) << "would be printed instead";

    answerWith("2 staples, right or bottom", Gtk::RESPONSE_OK,
               [this] { control<Gtk::Button>("Tshl233").clicked(); });
    EXPECT_EQ(written(Staple2ValueKey), CFPropertyList(13));
    choose("Tshl230", "None");
    EXPECT_EQ(written(FinishingOptionsKey), CFPropertyList(1)) << "printed at once";
    EXPECT_EQ(control<Gtk::Label>("Tshl231").get_text(), "None\nOffset: Printer Default");
}

// The user may have gone to another print dialog before the family's dialog is shown.
TEST_F(PaperPanel, AFamilysDialogBelongsToThePrintDialogOfItsMenu)
{
    open();
    auto& environment = ThePanelEnvironment();
    environment.dialog = 1;
    environment.makeCurrent = [&environment](std::uint64_t dialog) {
        environment.dialog = dialog;
        return true;
    };
    std::uint64_t current = 0;
    {
        const DialogAnswer answer([&](Gtk::Dialog& dialog) {
            current = environment.dialog;
            dialog.response(Gtk::RESPONSE_CANCEL);
        });
        choose("Tshl230", "2 Staples…");
        environment.dialog = 2;
        EXPECT_TRUE(TurnUntil([&] { return current != 0; }));
    }
    EXPECT_EQ(current, 1U);

    environment.makeCurrent = [](std::uint64_t /*dialog*/) { return false; }; // it has ended
    choose("Tshl230", "2 Staples…");
    environment.dialog = 2;
    TurnMainLoop(); // a dialog would wait for its answer
}

TEST_F(PaperPanel, ThePictureShowsTheFinishedJob)
{
    session_.pageFormat = PageFormat();
    session_.pageFormat->orientation = PageOrientation::Landscape;
    Stock stock;
    stock.setColor(2);
    ticket_->setItem("x", JobLevelStockKey, stock.asTicket());
    open();
    choose("Tshl220", "2-Sided, Flip on Long Edge");
    const auto views = AllOf<FinishedSetView>(control<Gtk::Box>("Tshl260"));
    ASSERT_EQ(views.size(), 1U);
    const FinishedSetView* view = views.front();
    EXPECT_TRUE(view->get_mapped());
    EXPECT_TRUE(view->shown().isLandscape);
    EXPECT_EQ(view->shown().paperColor, 2);
    EXPECT_EQ(view->shown().sides, 2);
    auto& offset = control<Gtk::Button>("Tshl232");
    EXPECT_TRUE(offset.get_visible());
    const DialogAnswer answer([](Gtk::Dialog& dialog) {
        FindWidget<Gtk::ToggleButton>(dialog, "TPDE1103")->set_active(true);
        dialog.response(Gtk::RESPONSE_OK);
    });
    offset.clicked();
    EXPECT_EQ(view->shown().finishing.offset, 3);
    EXPECT_EQ(written(OffsetKey), CFPropertyList(3));
}

TEST(SaveJobAsDialog, StaysOpenWithANoticeWhileSomethingIsWrong)
{
    const CFBundle bundle = BuiltBundle();
    {
        const DialogScript user({
            {"SaveJobAs", Respond(Gtk::RESPONSE_OK)},
            {"",          Respond(Gtk::RESPONSE_OK)},
            {"SaveJobAs",
             [](Gtk::Dialog& dialog) {
                 EXPECT_EQ(FindWidget<Gtk::Entry>(dialog, "TPDE5")->get_text(), "1234") << "kept";
                 FindWidget<Gtk::Entry>(dialog, "TPDE6")->set_text("123456789012"); // ten at most
                 FindWidget<Gtk::Entry>(dialog, "TPDE5")
                     ->set_text(FindWidget<Gtk::Entry>(dialog, "TPDE6")->get_text());
                 dialog.response(Gtk::RESPONSE_OK);
             }                                     },
        });
        const auto details = RunSaveJobAsDialog(
            nullptr, bundle, {.type = 6, .passcode = "1234", .passcodeAgain = "12345"});
        ASSERT_TRUE(details);
        EXPECT_EQ(details->passcode, "1234567890");
    }
    const auto now = static_cast<std::int64_t>(std::time(nullptr));
    const DialogScript user({
        {"SaveJobAs", Respond(Gtk::RESPONSE_OK)},
        {"",          Respond(Gtk::RESPONSE_OK)},
        {"SaveJobAs",
         [](Gtk::Dialog& dialog) {
             FindWidget<Gtk::Calendar>(dialog, "TPDE7")->select_month(6, 2099);
             FindWidget<Gtk::Calendar>(dialog, "TPDE7")->select_day(9);
             FindWidget<Gtk::SpinButton>(dialog, "TPDE8")->set_text("17"); // typed and not left
             FindWidget<Gtk::SpinButton>(dialog, "TPDE9")->set_text("5");
             dialog.response(Gtk::RESPONSE_OK);
         }                                     },
    });
    const auto details =
        RunSaveJobAsDialog(nullptr, bundle, {.type = 7, .printTime = {now - 86'400}});
    ASSERT_TRUE(details);
    EXPECT_EQ(details->printTime.secondsSinceEpoch,
              Glib::DateTime::create_local(2099, 7, 9, 17, 5, 0).to_unix());
}

TEST(SaveJobAsDialog, GoesWithThePrintDialogAndSoDoesANoticeBeforeIt)
{
    GtkWidget* printDialog = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    gtk_widget_show(printDialog);
    const DialogScript user({
        {"SaveJobAs", Respond(Gtk::RESPONSE_OK)                                       },
        {"",          [printDialog](Gtk::Dialog&) { gtk_widget_destroy(printDialog); }},
    });
    EXPECT_FALSE(
        RunSaveJobAsDialog(Glib::wrap(GTK_WINDOW(printDialog)), BuiltBundle(), {.type = 6}));
    for (Gtk::Window* window : Gtk::Window::list_toplevels()) {
        EXPECT_FALSE(window->get_mapped()) << window->get_title();
    }
}

TEST(SaveJobAsDialog, OkAloneChangesNoTime)
{
    constexpr std::int64_t Day = 86'400;
    constexpr std::int64_t Hour = 3'600;
    const CFBundle bundle = BuiltBundle();
    const auto pressOk = [&bundle](CFDate printTime, bool emptiesFields = false) {
        const DialogAnswer answer([emptiesFields](Gtk::Dialog& dialog) {
            for (const char* field : {"TPDE8", "TPDE9"}) {
                if (emptiesFields) {
                    FindWidget<Gtk::SpinButton>(dialog, field)->set_text("");
                }
            }
            dialog.response(Gtk::RESPONSE_OK);
        });
        return RunSaveJobAsDialog(nullptr, bundle, {.type = 7, .printTime = printTime});
    };
    const auto now = static_cast<std::int64_t>(std::time(nullptr));
    const CFDate withSeconds = {(now + Day) / 60 * 60 + 37};
    for (const bool emptiesFields : {false, true}) {
        const auto kept = pressOk(withSeconds, emptiesFields);
        ASSERT_TRUE(kept) << emptiesFields;
        EXPECT_EQ(kept->printTime, withSeconds) << emptiesFields;
    }
    const auto tomorrow = pressOk({std::numeric_limits<std::int64_t>::max()});
    ASSERT_TRUE(tomorrow) << "a time of no calendar can be accepted";
    const std::int64_t later = tomorrow->printTime.secondsSinceEpoch - now;
    EXPECT_TRUE(later > Day - 2 * Hour && later < Day + 2 * Hour) << later; // clocks may change
}

TEST(SaveJobAsDialog, ASavedJobNeedsANameOrTheJobs)
{
    const CFBundle bundle = BuiltBundle();
    const DialogAnswer answer([](Gtk::Dialog& dialog) {
        EXPECT_THAT(AccessibilityFaults(dialog), IsEmpty());
        auto* isOk = dialog.get_widget_for_response(Gtk::RESPONSE_OK);
        auto* name = FindWidget<Gtk::Entry>(dialog, "TPDE2");
        EXPECT_FALSE(isOk->get_sensitive());
        name->set_text(std::string(300, 'n'));
        EXPECT_TRUE(isOk->get_sensitive());
        FindWidget<Gtk::ToggleButton>(dialog, "TPDE1")->set_active(true);
        EXPECT_FALSE(name->get_sensitive());
        FindWidget<Gtk::ToggleButton>(dialog, "TPDE1")->set_active(false);
        FindWidget<Gtk::ComboBox>(dialog, "TPDE4")->set_active(1);
        dialog.response(Gtk::RESPONSE_OK);
    });
    const JobTypeDetails current = {.type = 4, .savedLocation = "smb://x/"};
    const auto details = RunSaveJobAsDialog(nullptr, bundle, current);
    ASSERT_TRUE(details);
    JobTypeDetails expected = current;
    expected.savedName = std::string(255, 'n');
    expected.saveFormat = 3;
    expected.printTime = details->printTime;
    EXPECT_EQ(*details, expected);
}

TEST(BackgroundFormsDialog, GivesWhatWasChosenOnOkAlone)
{
    const CFBundle bundle = BuiltBundle();
    BackgroundFormsOptions options;
    options.setMergeWithString("Letterhead");
    options.setInches(true);
    options.setXOffset(100); // an inch
    for (const int response :
         {static_cast<int>(Gtk::RESPONSE_OK), static_cast<int>(Gtk::RESPONSE_CANCEL)}) {
        SCOPED_TRACE(response);
        const DialogAnswer answer([response](Gtk::Dialog& dialog) {
            EXPECT_THAT(AccessibilityFaults(dialog), IsEmpty());
            auto* isOk = dialog.get_widget_for_response(Gtk::RESPONSE_OK);
            auto* existing = FindWidget<Gtk::ComboBoxText>(dialog, "TPDE4");
            EXPECT_FALSE(isOk->get_sensitive()) << "a new form needs a name";
            FindWidget<Gtk::ComboBoxText>(dialog, "TPDE2")->get_entry()->set_text("Draft");
            EXPECT_TRUE(isOk->get_sensitive());
            EXPECT_FALSE(existing->is_sensitive());
            FindWidget<Gtk::RadioButton>(dialog, "TPDE3")->set_active(true);
            existing->get_entry()->set_text("");
            EXPECT_FALSE(isOk->get_sensitive()) << "a merge needs a form";
            existing->get_entry()->set_text("Logo");
            FindWidget<Gtk::SpinButton>(dialog, "TPDE5")->set_text("12");
            FindWidget<Gtk::RadioButton>(dialog, "TPDE7")->set_active(true); // millimetres
            EXPECT_EQ(FindWidget<Gtk::SpinButton>(dialog, "TPDE8")->get_text(), "25.4");
            FindWidget<Gtk::SpinButton>(dialog, "TPDE9")->set_value(-3.5);
            dialog.response(response);
        });
        const auto choice = RunBackgroundFormsDialog(nullptr, bundle, options);
        ASSERT_EQ(choice.has_value(), response == Gtk::RESPONSE_OK);
        if (choice) {
            EXPECT_EQ(*choice, (BackgroundFormsChoice{.mergesWithForm = true,
                                                      .existingForm = "Logo",
                                                      .cyclePages = 12,
                                                      .isInches = false,
                                                      .xOffset = 254,
                                                      .yOffset = -35,
                                                      .newForm = "Draft"}));
        }
    }
}

TEST(BackgroundFormsDialog, KeepsTheNumbersOfEmptyFields)
{
    BackgroundFormsOptions options;
    options.setMergeWithString("Letterhead");
    EXPECT_EQ(options.setCyclePages(12), StatusOk);
    options.setInches(true);
    options.setXOffset(100);
    options.setYOffset(-25);
    const DialogAnswer answer([](Gtk::Dialog& dialog) {
        FindWidget<Gtk::RadioButton>(dialog, "TPDE3")->set_active(true);
        for (const char* field : {"TPDE5", "TPDE8", "TPDE9"}) {
            FindWidget<Gtk::SpinButton>(dialog, field)->set_text("");
        }
        dialog.response(Gtk::RESPONSE_OK);
    });
    const auto choice = RunBackgroundFormsDialog(nullptr, BuiltBundle(), options);
    ASSERT_TRUE(choice);
    BackgroundFormsChoice expected = ChoiceFromBackgroundForms(options);
    expected.mergesWithForm = true;
    EXPECT_EQ(*choice, expected);
}

TEST(BackgroundFormsDialog, ChangesAnOffsetThatItCannotShowOnlyWithItsField)
{
    constexpr std::int32_t Most = std::numeric_limits<std::int32_t>::max();
    BackgroundFormsOptions options;
    options.setNewFormString("Draft");
    options.setInches(false);
    options.setXOffset(Most);
    options.setYOffset(-Most);
    for (const bool changesY : {false, true}) {
        const DialogAnswer answer([changesY](Gtk::Dialog& dialog) {
            if (changesY) {
                FindWidget<Gtk::SpinButton>(dialog, "TPDE9")->set_value(-3);
            }
            dialog.response(Gtk::RESPONSE_OK);
        });
        BackgroundFormsChoice expected = ChoiceFromBackgroundForms(options);
        expected.yOffset = changesY ? -30 : -Most;
        EXPECT_EQ(RunBackgroundFormsDialog(nullptr, BuiltBundle(), options), expected);
    }
}

TEST(PaperDialogs, AreCancelledWhenTheyCannotBeShown)
{
    const BundleCopy copy;
    for (const char* name : {"SaveJobAs.ui", "BackgroundFormsSetup.ui"}) {
        std::filesystem::resize_file(copy.resource(name), 900);
    }
    EXPECT_FALSE(RunSaveJobAsDialog(nullptr, copy.bundle(), {.type = 6}));
    EXPECT_FALSE(RunBackgroundFormsDialog(nullptr, copy.bundle(), BackgroundFormsOptions()));
}

} // namespace
} // namespace tarvo
