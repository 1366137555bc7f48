#include "panels/stock/AdvancedStockDialog.h"

#include "StockFixture.h"
#include "panels/toolkit/Dialogs.h"
#include "panels/toolkit/PopupButton.h"
#include "support/DialogScript.h"

#include <gmock/gmock.h>
#include <gtkmm/checkbutton.h>
#include <gtkmm/spinbutton.h>

namespace tarvo {
namespace {

using testing::HasSubstr;

constexpr const char* MenuWindow = "AdvancedStockSelection";
constexpr const char* LibraryWindow = "NamedPaperStockSelection";

// pop-up, value
constexpr std::pair<const char*, std::int32_t> EveryChoice[] = {
    {"1",  4 },
    {"2",  2 },
    {"3",  10},
    {"4",  2 },
    {"8",  3 },
    {"9",  4 },
    {"10", 1 },
    {"11", 2 },
};

class AdvancedStockDialog : public StockFixture {
protected:
    std::int32_t run(Stock& stock, JobContext context = JobContext::Cover)
    {
        std::int32_t result = 0;
        EXPECT_EQ(RunModalAdvancedStockSelection(*bundle_, nullptr, context, stock, result),
                  StatusOk);
        return result;
    }
    std::int32_t runNamed(Stock& stock, bool& replaces)
    {
        NamedPaperRequest request;
        request.context = JobContext::Cover;
        request.isTaken = [](const std::string& name) { return name == "Taken"; };
        std::int32_t result = 0;
        EXPECT_EQ(
            RunModalNamedPaperStockSelection(*bundle_, nullptr, request, stock, result, replaces),
            StatusOk);
        return result;
    }

    static Gtk::ComboBox& popup(Gtk::Dialog& dialog, const std::string& number)
    {
        return *FindWidget<Gtk::ComboBox>(dialog, "TPDE" + number);
    }
    static void choose(Gtk::Dialog& dialog, const std::string& number, std::int32_t value)
    {
        SetPopupButtonToTicketValue(&popup(dialog, number), value);
    }
    static Gtk::Entry& name(Gtk::Dialog& dialog)
    {
        return *FindWidget<Gtk::Entry>(dialog, "TPDE12");
    }
    static std::string summary(Gtk::Dialog& dialog)
    {
        return FindWidget<Gtk::Label>(dialog, "TPDE15")->get_text();
    }
};

TEST_F(AdvancedStockDialog, SetsEveryAttributeOnOkAlone)
{
    for (const int response : {Gtk::RESPONSE_OK, Gtk::RESPONSE_CANCEL}) {
        Stock stock;
        const DialogScript user(MenuWindow, [response](Gtk::Dialog& dialog) {
            EXPECT_THAT(AccessibilityFaults(dialog), testing::IsEmpty());
            EXPECT_FALSE(name(dialog).get_visible());
            EXPECT_FALSE(popup(dialog, "9").get_sensitive()) << "no side is coated";
            for (const auto& [number, value] : EveryChoice) {
                choose(dialog, number, value);
            }
            EXPECT_TRUE(popup(dialog, "9").get_sensitive());
            FindWidget<Gtk::CheckButton>(dialog, "TPDE7")->set_active(false);
            FindWidget<Gtk::SpinButton>(dialog, "TPDE6")->set_text("120"); // not left yet
            FindWidget<Gtk::Entry>(dialog, "TPDE14")->set_text("drawer");
            dialog.response(response);
        });
        const bool isOk = response == Gtk::RESPONSE_OK;
        EXPECT_EQ(run(stock), isOk ? DialogOk : DialogCancel);
        EXPECT_EQ(StockText(stock),
                  isOk ? "Size=4 Type=10 Color=2 Weight=120 Punched=2 SidesCoated=3 kCoatingType=4 "
                         "Finish=1 kGrain=2 CustomComment=drawer"
                       : "");
    }
}

TEST_F(AdvancedStockDialog, ShowsWhatOneChoiceMakesOfTheOthers)
{
    Stock stock = StockOf("Size=75 Width=10000 Length=20000 Weight=229 Color=2");
    const DialogScript user({
        {MenuWindow,
         [](Gtk::Dialog& dialog) {
             EXPECT_THAT(summary(dialog), HasSubstr("Color: Blue"));
             choose(dialog, "3", 2);
             EXPECT_EQ(GetPopupButtonTicketValue(popup(dialog, "2"), 0), 6) << "clear";
             EXPECT_THAT(summary(dialog), HasSubstr("Color: Clear"));
             choose(dialog, "5", 0); // asks
         }                                                     },
        {"StockDescriptionSetup", Respond(Gtk::RESPONSE_CANCEL)},
        {MenuWindow,
         [](Gtk::Dialog& dialog) {
             EXPECT_EQ(GetPopupButtonTicketValue(popup(dialog, "5"), 0), UnsetValue) << "as before";
             choose(dialog, "2", 10);
         }                                                     },
        {"CustomStockColorSetup", Typing("TPDE1",                "Lime")},
        {MenuWindow,
         [](Gtk::Dialog& dialog) {
             EXPECT_THAT(summary(dialog), HasSubstr("Color: Lime"));
             dialog.response(Gtk::RESPONSE_OK);
         }                                          },
    });
    EXPECT_EQ(run(stock), DialogOk);
    EXPECT_EQ(stock.weight(), 229) << "above what the field shows, and not touched";
    EXPECT_EQ(stock.width(), 10000);
    EXPECT_EQ(stock.customColor(), "Lime");
    EXPECT_EQ(stock.description(), "");
}

// Opens the pop-up's menu and leaves it.
void OpenMenu(Gtk::ComboBox& popup, bool choosesTheSame)
{
    AtkObject* accessible = gtk_combo_box_get_popup_accessible(popup.gobj());
    auto* menu = GTK_MENU_SHELL(gtk_accessible_get_widget(GTK_ACCESSIBLE(accessible)));
    for (int turn = 0; turn < 1'000 && gtk_widget_get_mapped(GTK_WIDGET(menu)) == FALSE; ++turn) {
        popup.popup();
        TurnMainLoop();
        g_usleep(1'000);
    }
    ASSERT_TRUE(gtk_widget_get_mapped(GTK_WIDGET(menu)));
    if (choosesTheSame) {
        gtk_menu_shell_select_first(menu, FALSE);
        const std::unique_ptr<GList, decltype(&g_list_free)> items(
            gtk_container_get_children(GTK_CONTAINER(menu)), g_list_free);
        const auto active = static_cast<guint>(popup.get_active_row_number());
        gtk_menu_shell_activate_item(menu, GTK_WIDGET(g_list_nth_data(items.get(), active)), TRUE);
    } else {
        gtk_menu_shell_cancel(menu);
    }
    TurnMainLoop();
}

TEST_F(AdvancedStockDialog, AsksAgainForWhatIsChosenAlready)
{
    Stock stock = StockOf("Color=10 CustomColor=Lime");
    const DialogScript user({
        {MenuWindow,              [](Gtk::Dialog& dialog) { OpenMenu(popup(dialog, "2"), true); }},
        {"CustomStockColorSetup",
         [](Gtk::Dialog& dialog) {
             EXPECT_EQ(FindWidget<Gtk::Entry>(dialog, "TPDE1")->get_text(), "Lime");
             FindWidget<Gtk::Entry>(dialog, "TPDE1")->set_text("Moss");
             dialog.response(Gtk::RESPONSE_OK);
         }                                                                                       },
        {MenuWindow,
         [](Gtk::Dialog& dialog) {
             OpenMenu(popup(dialog, "2"), false);
             EXPECT_EQ(DialogScript::InFront(), &dialog) << "Escape asks nothing";
             dialog.response(Gtk::RESPONSE_OK);
         }                                                                                       },
    });
    EXPECT_EQ(run(stock), DialogOk);
    EXPECT_EQ(StockText(stock), "Color=10 CustomColor=Moss");
}

TEST_F(AdvancedStockDialog, GoesBackToTheDefaults)
{
    Stock stock = StockOf("Size=4 Type=7 Weight=120 Punched=2 Description=thick CustomComment=top "
                          "Finish=2");
    const DialogScript user(MenuWindow, [](Gtk::Dialog& dialog) {
        EXPECT_FALSE(popup(dialog, "1").get_sensitive()) << "the size of a job is its page's";
        EXPECT_EQ(ShownText(popup(dialog, "1")), "");
        FindWidget<Gtk::Button>(dialog, "TPDE16")->clicked();
        EXPECT_EQ(FindWidget<Gtk::Entry>(dialog, "TPDE14")->get_text(), "");
        EXPECT_EQ(ShownText(popup(dialog, "3")), "Printer Default");
        EXPECT_FALSE(FindWidget<Gtk::SpinButton>(dialog, "TPDE6")->get_sensitive());
        dialog.response(Gtk::RESPONSE_OK);
    });
    EXPECT_EQ(run(stock, JobContext::Job), DialogOk);
    EXPECT_EQ(StockText(stock), "Size=4 Punched=1 Finish=2");
}

TEST_F(AdvancedStockDialog, NeedsANameForTheLibraryAndAsksForATakenOne)
{
    Stock stock = StockOf("Color=2");
    bool replaces = false;
    const DialogScript user({
        {LibraryWindow,
         [](Gtk::Dialog& dialog) {
             EXPECT_THAT(AccessibilityFaults(dialog), testing::IsEmpty());
             EXPECT_EQ(dialog.get_title(), "Add Named Paper");
             EXPECT_TRUE(name(dialog).is_focus());
             EXPECT_FALSE(CanPressOk(dialog));
             PressKey(dialog, GDK_KEY_Return);
             EXPECT_TRUE(dialog.get_mapped());
             name(dialog).set_text(std::string(300, 'a'));
             EXPECT_EQ(name(dialog).get_text_length(), 255);
             name(dialog).set_text("Taken");
             choose(dialog, "2", 3); // keeps the name
             FindWidget<Gtk::CheckButton>(dialog, "TPDE13")->set_active(true);
             EXPECT_EQ(summary(dialog), "Name: Taken") << "it alone tells the paper";
             dialog.response(Gtk::RESPONSE_OK);
         }                                       },
        {"",            Pressing(GDK_KEY_Escape) }, // do not replace
        {LibraryWindow, Respond(Gtk::RESPONSE_OK)},
        {"",            Respond(Gtk::RESPONSE_OK)}, // do
    });
    EXPECT_EQ(runNamed(stock, replaces), DialogOk);
    EXPECT_TRUE(replaces);
    EXPECT_EQ(StockText(stock), "Color=3 CustomName=Taken CustomNameOnly=true");
}

} // namespace
} // namespace tarvo
