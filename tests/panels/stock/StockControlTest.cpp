#include "panels/stock/StockControl.h"

#include "StockFixture.h"
#include "platform/files/FileLock.h"
#include "prefs/FailingCall.h"
#include "prefs/PreferenceTasks.h"
#include "stocklibrary/RecentPapers.h"
#include "support/DialogScript.h"

#include <gmock/gmock.h>
#include <gtkmm/checkmenuitem.h>
#include <gtkmm/menu.h>

#include <chrono>

namespace tarvo {
namespace {

class StockControlTest : public StockFixture {
protected:
    StockControlTest() : window_(std::make_unique<Gtk::Window>())
    {
        menu_ = Glib::RefPtr<Gtk::Button>(Gtk::make_managed<Gtk::Button>("Stock"));
        icon_ = Glib::RefPtr<Gtk::Button>(Gtk::make_managed<Gtk::Button>());
        summary_ = Glib::RefPtr<Gtk::Label>(Gtk::make_managed<Gtk::Label>());
        auto* box = Gtk::make_managed<Gtk::Box>();
        for (Gtk::Widget* widget :
             std::initializer_list<Gtk::Widget*>{menu_.get(), icon_.get(), summary_.get()}) {
            widget->reference();
            box->add(*widget);
        }
        window_->add(*box);
        window_->show_all();
        makeControl(JobContext::Cover);
        TurnMainLoop();
    }

    void makeControl(JobContext context)
    {
        control_ = std::make_unique<StockControl>(context, stock_, [this] { ++changes_; });
        control_->bind(menu_, icon_, summary_);
    }

    static Gtk::Menu* openMenu()
    {
        for (int turn = 0; turn < 1000; ++turn) {
            TurnMainLoop();
            for (Gtk::Window* window : Gtk::Window::list_toplevels()) {
                auto* menu = dynamic_cast<Gtk::Menu*>(window->get_child());
                if (menu != nullptr && menu->get_mapped()) {
                    return menu;
                }
            }
        }
        return nullptr;
    }
    static Gtk::MenuItem* item(Gtk::MenuShell& menu, const std::string& text)
    {
        for (Gtk::Widget* child : menu.get_children()) {
            auto* found = dynamic_cast<Gtk::MenuItem*>(child);
            if (found != nullptr && found->get_label() == text) {
                return found;
            }
        }
        return nullptr;
    }
    static bool isChecked(Gtk::MenuItem* item)
    {
        const auto* checked = dynamic_cast<Gtk::CheckMenuItem*>(item);
        return checked != nullptr && checked->get_active();
    }
    // Opens the menu and chooses as the texts lead.
    void choose(const std::vector<std::string>& texts)
    {
        menu_->clicked();
        Gtk::MenuShell* menu = openMenu();
        ASSERT_NE(menu, nullptr);
        Gtk::MenuItem* found = nullptr;
        for (const std::string& text : texts) {
            found = item(*menu, text);
            ASSERT_NE(found, nullptr) << text;
            menu = found->get_submenu();
        }
        gtk_menu_shell_activate_item(
            GTK_MENU_SHELL(gtk_widget_get_parent(GTK_WIDGET(found->gobj()))),
            GTK_WIDGET(found->gobj()), TRUE);
        TurnMainLoop();
    }

    static std::string recent()
    {
        std::string names;
        for (const NamedPaper& paper : RecentPapers(UserPreferenceFolders(), nullptr)) {
            names += paper.name + " ";
        }
        return names;
    }

    Stock stock_;
    int changes_ = 0;
    std::unique_ptr<Gtk::Window> window_;
    Glib::RefPtr<Gtk::Button> menu_;
    Glib::RefPtr<Gtk::Button> icon_;
    Glib::RefPtr<Gtk::Label> summary_;
    std::unique_ptr<StockControl> control_;
};

TEST_F(StockControlTest, ShowsWhatIsChosenFromItsMenu)
{
    EXPECT_EQ(summary_->get_text(), "Use Job Setting");
    choose({"Color", "Blue"});
    EXPECT_EQ(StockText(stock_), "Color=2");
    EXPECT_EQ(summary_->get_text(), "Color: Blue");
    EXPECT_EQ(menu_->get_accessible()->get_description(), "Color: Blue");
    EXPECT_EQ(changes_, 1);
    stock_.setColor(3);
    control_->show();
    EXPECT_EQ(summary_->get_text(), "Color: Yellow");
    EXPECT_EQ(changes_, 1) << "not the user's doing";
    icon_->clicked();
    Gtk::Menu* menu = openMenu();
    ASSERT_NE(menu, nullptr) << "the picture opens the menu, too";
    Gtk::Menu* colors = item(*menu, "Color")->get_submenu();
    EXPECT_TRUE(isChecked(item(*colors, "Yellow")));
    EXPECT_FALSE(isChecked(item(*colors, "Blue")));
    menu->popdown();
}

TEST_F(StockControlTest, AsksForWhatAChoiceNeeds)
{
    {
        const DialogScript user("CustomStockColorSetup", Pressing(GDK_KEY_Escape));
        choose({"Color", "Custom Color…"});
    }
    EXPECT_EQ(stock_, Stock());
    EXPECT_EQ(changes_, 0);
    const DialogScript user("Custom", Respond(Gtk::RESPONSE_OK));
    choose({"Size", "Custom…"});
    EXPECT_EQ(stock_.size(), 75);
    EXPECT_EQ(changes_, 1);
}

TEST_F(StockControlTest, OffersNamedPapersTheMostRecentlyUsedFirst)
{
    const std::string blue = save("Blue", 2);
    RememberRecentPaper(UserPreferenceFolders(), save("Green", 4));
    RememberRecentPaper(UserPreferenceFolders(), blue);
    choose({"Stock Library", "Green"});
    EXPECT_EQ(stock_.color(), 4);
    EXPECT_EQ(stock_.customName(), "Green");
    awaitChanges();
    EXPECT_EQ(recent(), "Green Blue ");
    choose({"Stock Library", "Clear Recently Used"});
    awaitChanges();
    EXPECT_EQ(recent(), "");
    EXPECT_EQ(stock_.customName(), "Green");
    choose({"Punching", "Punched"});
    EXPECT_EQ(stock_.customName(), "") << "it is not that paper any more";
}

// Another program holds the file for as long as it likes.
TEST_F(StockControlTest, DoesNotWaitForTheLibrarysFile)
{
    RememberRecentPaper(UserPreferenceFolders(), save("Blue", 2));
    RememberRecentPaper(UserPreferenceFolders(), save("Green", 4));
    auto held = std::make_unique<FileLock>(libraryPath() + ".lock", std::chrono::seconds(5));
    choose({"Stock Library", "Blue"});
    EXPECT_EQ(stock_.customName(), "Blue");
    EXPECT_FALSE(AwaitPreferenceChanges({})) << "still to be made";
    EXPECT_EQ(recent(), "Green Blue ");
    choose({"Stock Library", "Clear Recently Used"});
    held.reset();
    awaitChanges();
    EXPECT_EQ(recent(), "") << "the user's last word";
}

TEST_F(StockControlTest, KeepsAPaperOfALibraryThatCannotBeSaved)
{
    const FailingCall full("fsync", ENOSPC);
    testing::internal::CaptureStderr();
    const DialogScript user({
        {"StockLibrary",
         [](Gtk::Dialog& dialog) { FindWidget<Gtk::Button>(dialog, "TPDE3")->clicked(); }},
        {"NamedPaperStockSelection", Typing("TPDE12",                                      "New")},
        {"StockLibrary",
         [](Gtk::Dialog& dialog) {
             EXPECT_THAT(FindWidget<Gtk::Label>(dialog, "TPDE9")->get_text().raw(),
                         testing::HasSubstr("could not be saved"));
             dialog.response(Gtk::RESPONSE_OK);
         }                                                                },
    });
    choose({"Stock Library", "Open Stock Library…"});
    EXPECT_THAT(testing::internal::GetCapturedStderr(),
                testing::HasSubstr("WriteUserPreferences() failed (28)\n"));
    EXPECT_EQ(stock_.customName(), "New");
}

// The application ends the print dialog while one of ours is open.
TEST_F(StockControlTest, MayGoWhileADialogIsOpen)
{
    const DialogScript user("CustomStockColorSetup", [this](Gtk::Dialog& dialog) {
        control_.reset();
        FindWidget<Gtk::Entry>(dialog, "TPDE1")->set_text("Lime");
        dialog.response(Gtk::RESPONSE_OK);
    });
    choose({"Color", "Custom Color…"});
    EXPECT_EQ(stock_, Stock());
    EXPECT_EQ(changes_, 0);
    menu_->clicked();
    EXPECT_EQ(openMenu(), nullptr) << "the button stays, without effect";
}

} // namespace
} // namespace tarvo
