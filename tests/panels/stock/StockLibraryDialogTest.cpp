#include "panels/stock/StockLibraryDialog.h"

#include "StockFixture.h"
#include "panels/toolkit/Dialogs.h"
#include "panels/toolkit/PopupButton.h"
#include "platform/files/FileLock.h"
#include "prefs/PreferenceTasks.h"
#include "settings/TicketKeys.h"
#include "stocklibrary/DemoPrinter.h"
#include "stocklibrary/PrinterStockThread.h"
#include "stocklibrary/RecentPapers.h"
#include "stocklibrary/StockLibraryView.h"
#include "support/DialogScript.h"

#include <gmock/gmock.h>
#include <gtkmm/checkbutton.h>
#include <gtkmm/treeview.h>

#include <chrono>
#include <fstream>

namespace tarvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* Library = "StockLibrary";
constexpr const char* PaperWindow = "NamedPaperStockSelection";

// Buttons by their numbers.
constexpr const char* Add = "TPDE3";
constexpr const char* Edit = "TPDE4";
constexpr const char* Delete = "TPDE5";
constexpr const char* Copy = "TPDE6";
constexpr const char* Refresh = "TPDE7";
constexpr const char* Columns = "TPDE8";

class StockLibraryDialog : public StockFixture {
protected:
    ~StockLibraryDialog() override { MyRemoveThread(0); }

    LibraryAnswer run(Stock& stock, Gtk::Window* parent = nullptr)
    {
        LibraryAnswer answer = LibraryAnswer::PaperLost;
        EXPECT_EQ(RunModalStockLibraryDialog(*bundle_, parent, JobContext::Cover, stock, answer),
                  StatusOk);
        return answer;
    }
    LibraryAnswer run(Gtk::Window* parent = nullptr)
    {
        Stock stock;
        return run(stock, parent);
    }

    static Gtk::TreeView& list(Gtk::Dialog& dialog)
    {
        return *FindWidget<Gtk::TreeView>(dialog, "TPDE2");
    }
    static void select(Gtk::Dialog& dialog, int row)
    {
        list(dialog).set_cursor(Gtk::TreePath(std::to_string(row)));
    }
    static void press(Gtk::Dialog& dialog, const char* button)
    {
        ASSERT_TRUE(isEnabled(dialog, button)) << button;
        FindWidget<Gtk::Button>(dialog, button)->clicked();
    }
    static bool isEnabled(Gtk::Dialog& dialog, const char* button)
    {
        return FindWidget<Gtk::Button>(dialog, button)->get_sensitive();
    }
    static DialogScript::Action pressing(const char* button, int row = -1)
    {
        return [button, row](Gtk::Dialog& dialog) {
            if (row >= 0) {
                select(dialog, row);
            }
            press(dialog, button);
        };
    }
    static DialogScript::Action naming(const char* name) { return Typing("TPDE12", name); }
    static void showPrinter(Gtk::Dialog& dialog)
    {
        SetPopupButtonToTicketValue(FindWidget<Gtk::ComboBox>(dialog, "TPDE1"), 2);
    }
    static bool ask(const DemoPrinter& printer, PrinterStockStatus expected)
    {
        MySpawnThread("com.tarvo.test", printer.authority(), 0);
        return TurnUntil([expected] { return CurrentPrinterStockStatus() == expected; });
    }
    static std::string status(Gtk::Dialog& dialog)
    {
        return FindWidget<Gtk::Label>(dialog, "TPDE9")->get_text();
    }
    static std::size_t rows(Gtk::Dialog& dialog)
    {
        return list(dialog).get_model()->children().size();
    }
};

TEST_F(StockLibraryDialog, GivesTheStockOfTheChosenPaper)
{
    save("Blue", 2);
    const std::string green = save("Green", 4);
    Stock stock = StockOf("Weight=90");
    {
        const DialogScript user(Library, [](Gtk::Dialog& dialog) {
            EXPECT_THAT(AccessibilityFaults(dialog), IsEmpty());
            EXPECT_FALSE(CanPressOk(dialog)) << "nothing is selected";
            EXPECT_TRUE(list(dialog).is_focus());
            select(dialog, 1);
            EXPECT_TRUE(CanPressOk(dialog));
            list(dialog).get_column(0)->set_fixed_width(231);
            TurnMainLoop();
            list(dialog).row_activated(Gtk::TreePath("1"), *list(dialog).get_column(0));
        });
        EXPECT_EQ(run(stock), LibraryAnswer::Chosen);
    }
    EXPECT_EQ(StockText(stock), "Color=4 CustomName=Green");
    awaitChanges();
    const StockLibraryView view = ReadStockLibraryView(UserPreferenceFolders());
    EXPECT_EQ(view.selectedRow, green);
    EXPECT_EQ(view.widths[0], 231);
    EXPECT_EQ(view.widths[1], std::nullopt) << "as wide as ever";
    EXPECT_EQ(RecentPapers(UserPreferenceFolders(), nullptr)[0].uuid, green);
    const DialogScript user(Library, [](Gtk::Dialog& dialog) {
        EXPECT_TRUE(list(dialog).get_selection()->is_selected(Gtk::TreePath("1")));
        EXPECT_EQ(list(dialog).get_column(0)->get_fixed_width(), 231);
        select(dialog, 0);
        PressKey(dialog, GDK_KEY_Escape);
    });
    EXPECT_EQ(run(stock), LibraryAnswer::Cancelled);
    EXPECT_EQ(StockText(stock), "Color=4 CustomName=Green");
    EXPECT_EQ(ReadStockLibraryView(UserPreferenceFolders()).selectedRow, green);
}

TEST_F(StockLibraryDialog, KeepsTheUsersPapers)
{
    const DialogScript user({
        {Library,                    pressing(Add)                },
        {PaperWindow,                naming("Blue")               },
        {Library,                    pressing(Add)                },
        {PaperWindow,                naming("BLUE")               },
        {"",                         Respond(Gtk::RESPONSE_CANCEL)},
        {PaperWindow,                naming("Green")              },
        {Library,                    pressing(Edit,                 1)}, // its name is its own
        {PaperWindow,
         [](Gtk::Dialog& dialog) {
             EXPECT_EQ(dialog.get_title(), "Edit Named Paper");
             SetPopupButtonToTicketValue(FindWidget<Gtk::ComboBox>(dialog, "TPDE2"), 4);
             dialog.response(Gtk::RESPONSE_OK);
         }                                            },
        {Library,                          pressing(Add)    },
        {PaperWindow,                          Respond(Gtk::RESPONSE_CANCEL)                                        },
        {Library,                          pressing(Edit,         1)},
        {PaperWindow,                        naming("Blue")                                            },
        {"",Respond(Gtk::RESPONSE_OK)}, // in place of the first
        {Library,             pressing(Add)                                                                    },
        {PaperWindow, naming("Red")},
        {Library,             pressing(Delete,                                                                                 1)},
        {"",Pressing(GDK_KEY_Return)}, // not by a hasty key
        {Library,
         [](Gtk::Dialog& dialog) {
             EXPECT_EQ(rows(dialog), 2U);
             EXPECT_TRUE(list(dialog).get_selection()->is_selected(Gtk::TreePath("1")));
             press(dialog, Delete);
         }                               },
        {"",                    Respond(Gtk::RESPONSE_OK)                                                        },
        {Library,                         Respond(Gtk::RESPONSE_CANCEL)         },
    });
    EXPECT_EQ(run(), LibraryAnswer::Cancelled);
    EXPECT_THAT(saved(), ElementsAre("Blue:4")) << "whatever the result";
}

// name, stock, whether the first paper is deleted while the dialog is open, answer
constexpr std::tuple<const char*, const char*, bool, LibraryAnswer> LostCases[] = {
    {"another one is deleted",     "Color=4 CustomName=Teal", true,  LibraryAnswer::Cancelled},
    {"its own one is deleted",     "Color=2 CustomName=Blue", true,  LibraryAnswer::PaperLost},
    {"of its name, but different", "Color=3 CustomName=Blue", true,  LibraryAnswer::Cancelled},
    {"a printer's, not told yet",  "CustomName=Far",          true,  LibraryAnswer::Cancelled},
    {"never named",                "Color=2",                 true,  LibraryAnswer::Cancelled},
    {"its paper is there",         "Color=2 CustomName=blue", false, LibraryAnswer::Cancelled},
};

TEST_F(StockLibraryDialog, TellsOfAPaperThatIsLostWhileItIsOpen)
{
    save("Teal", 4);
    for (const auto& [name, text, isDeleted, answer] : LostCases) {
        SCOPED_TRACE(name);
        std::vector<DialogScript::Step> steps;
        if (isDeleted) {
            steps = {
                {Library, pressing(Delete, 1)},
                {"",       Respond(Gtk::RESPONSE_OK)                    }
            };
        }
        save("Blue", 2);
        steps.push_back({Library, Respond(Gtk::RESPONSE_CANCEL)});
        const DialogScript user(steps);
        Stock stock = StockOf(text);
        EXPECT_EQ(run(stock), answer);
        EXPECT_EQ(StockText(stock), text) << "for the caller to decide";
    }
}

TEST_F(StockLibraryDialog, ComparesWithThePrintersPapersOfTheEnd)
{
    StockLibrary far = Paper("Far");
    const auto listOf = [](StockLibrary paper) {
        auto list = std::make_shared<StockLibraryList>();
        list->add(paper);
        return list;
    };
    for (const bool isLost : {false, true}) {
        ThePanelEnvironment().printerStockList = listOf(far);
        const DialogScript user(Library, [&](Gtk::Dialog& dialog) {
            ThePanelEnvironment().printerStockList = listOf(isLost ? Paper("Near") : far);
            dialog.response(Gtk::RESPONSE_CANCEL);
        });
        Stock stock = far.stock();
        EXPECT_EQ(run(stock), isLost ? LibraryAnswer::PaperLost : LibraryAnswer::Cancelled);
    }
}

TEST_F(StockLibraryDialog, ShowsButDoesNotGiveAPaperThatIsNotOffered)
{
    save("Odd", 77);
    const DialogScript user(Library, [](Gtk::Dialog& dialog) {
        select(dialog, 0);
        EXPECT_FALSE(CanPressOk(dialog));
        EXPECT_NE(status(dialog), "");
        list(dialog).row_activated(Gtk::TreePath("0"), *list(dialog).get_column(0));
        EXPECT_TRUE(dialog.get_mapped());
        EXPECT_TRUE(isEnabled(dialog, Edit));
        EXPECT_FALSE(isEnabled(dialog, Copy));
        dialog.response(Gtk::RESPONSE_CANCEL);
    });
    EXPECT_EQ(run(), LibraryAnswer::Cancelled);
}

TEST_F(StockLibraryDialog, ShowsTheColumnsThatTheUserWants)
{
    const auto setColumns = [](bool isOk) {
        return [isOk](Gtk::Dialog& dialog) {
            EXPECT_THAT(AccessibilityFaults(dialog), IsEmpty());
            EXPECT_FALSE(FindWidget<Gtk::CheckButton>(dialog, "TPDE1")->get_sensitive());
            FindWidget<Gtk::CheckButton>(dialog, isOk ? "TPDE2" : "TPDE3")->set_active(false);
            dialog.response(isOk ? Gtk::RESPONSE_OK : Gtk::RESPONSE_CANCEL);
        };
    };
    const DialogScript user({
        {Library,               pressing(Columns)},
        {"StockLibraryColumns", setColumns(true) },
        {Library,               pressing(Columns)},
        {"StockLibraryColumns", setColumns(false)},
        {Library,
         [](Gtk::Dialog& dialog) {
             EXPECT_TRUE(list(dialog).get_column(0)->get_visible());
             EXPECT_FALSE(list(dialog).get_column(1)->get_visible());
             EXPECT_TRUE(list(dialog).get_column(2)->get_visible());
             dialog.response(Gtk::RESPONSE_CANCEL);
         }                                       },
    });
    EXPECT_EQ(run(), LibraryAnswer::Cancelled);
    awaitChanges();
    const auto isHidden = ReadStockLibraryView(UserPreferenceFolders()).isHidden;
    EXPECT_EQ(std::count(isHidden.begin(), isHidden.end(), true), 1);
    EXPECT_TRUE(isHidden[1]);
}

TEST_F(StockLibraryDialog, SavesWhenItIsClosedWhatCouldNotBeSavedBefore)
{
    save("Blue", 2);
    const std::string aside = libraryPath() + ".aside";
    testing::internal::CaptureStderr();
    const auto addWhileBlocked = [&aside](Gtk::Dialog& dialog) {
        std::filesystem::rename(libraryPath(), aside);
        std::filesystem::create_directory(libraryPath());
        press(dialog, Add);
    };
    const auto closeWhenFree = [this, &aside](Gtk::Dialog& dialog) {
        EXPECT_EQ(status(dialog), bundle_->localizedString("StockLibraryNotSaved"));
        EXPECT_EQ(rows(dialog), 2U);
        std::filesystem::remove(libraryPath());
        std::filesystem::rename(aside, libraryPath());
        dialog.response(Gtk::RESPONSE_CANCEL);
    };
    const DialogScript user({
        {Library,     addWhileBlocked},
        {PaperWindow, naming("New")  },
        {Library,     closeWhenFree  },
    });
    EXPECT_EQ(run(), LibraryAnswer::Cancelled);
    awaitChanges();
    EXPECT_EQ(saved().size(), 2U);
    EXPECT_THAT(testing::internal::GetCapturedStderr(),
                testing::StartsWith("WriteUserPreferences() failed"));
}

TEST_F(StockLibraryDialog, TellsOfALibraryThatCannotBeRead)
{
    std::filesystem::create_directories(UserPreferenceFolders().user);
    std::ofstream(libraryPath()) << "<plist>";
    const std::string aside = libraryPath() + ".unreadable";
    {
        const DialogScript user(Library, [](Gtk::Dialog& dialog) {
            EXPECT_THAT(status(dialog), testing::StartsWith("Your library could not be read: "));
            dialog.response(Gtk::RESPONSE_CANCEL);
        });
        EXPECT_EQ(run(), LibraryAnswer::Cancelled);
        awaitChanges();
        EXPECT_FALSE(std::filesystem::exists(aside)) << "nobody has changed anything";
    }
    const DialogScript user({
        {Library,     pressing(Add)},
        {PaperWindow, naming("New")},
        {Library,
         [&aside](Gtk::Dialog& dialog) {
             EXPECT_THAT(status(dialog), testing::EndsWith("It is kept as " + aside + "."));
             dialog.response(Gtk::RESPONSE_CANCEL);
         }                         },
    });
    EXPECT_EQ(run(), LibraryAnswer::Cancelled);
    EXPECT_TRUE(std::filesystem::exists(aside));
    EXPECT_EQ(saved().size(), 1U);
}

// Another program holds it for as long as it likes; the user's answer is in the file after that.
TEST_F(StockLibraryDialog, NeitherOpensNorClosesWithTheFile)
{
    const std::string blue = save("Blue", 2);
    auto held = std::make_unique<FileLock>(libraryPath() + ".lock", std::chrono::seconds(5));
    const auto pressWhileHeld = [](Gtk::Dialog& dialog) {
        EXPECT_FALSE(AwaitPreferenceChanges({})) << "the marks are still to be made";
        press(dialog, Columns);
    };
    const DialogScript user({
        {Library,               pressWhileHeld},
        {"StockLibraryColumns",
         [](Gtk::Dialog& dialog) {
             FindWidget<Gtk::CheckButton>(dialog, "TPDE2")->set_active(false);
             dialog.response(Gtk::RESPONSE_OK);
         }                                    },
        {Library,
         [](Gtk::Dialog& dialog) {
             select(dialog, 0);
             dialog.response(Gtk::RESPONSE_OK);
         }                                    },
    });
    Gtk::Window window;
    window.show();
    Stock stock;
    EXPECT_EQ(run(stock, &window), LibraryAnswer::Chosen);
    EXPECT_EQ(stock.customName(), "Blue");
    EXPECT_FALSE(AwaitPreferenceChanges({}));
    EXPECT_EQ(ReadStockLibraryView(UserPreferenceFolders()), StockLibraryView());
    held.reset();
    awaitChanges();
    const StockLibraryView view = ReadStockLibraryView(UserPreferenceFolders());
    EXPECT_EQ(view.selectedRow, blue);
    EXPECT_TRUE(view.isHidden[1]);
    EXPECT_EQ(RecentPapers(UserPreferenceFolders(), nullptr)[0].uuid, blue);
    EXPECT_EQ(ReadUserStockList(UserPreferenceFolders())->entry(blue)->status(), 1);
}

TEST_F(StockLibraryDialog, SaysWhyThereIsNothingToChoose)
{
    const DialogScript user(Library, [](Gtk::Dialog& dialog) {
        EXPECT_EQ(status(dialog), "Your library has no papers yet.");
        showPrinter(dialog);
        EXPECT_EQ(status(dialog), "This printer has no list of papers.");
        EXPECT_EQ(rows(dialog), 0U);
        for (const char* button : {Add, Edit, Delete, Copy, Refresh}) {
            EXPECT_FALSE(isEnabled(dialog, button)) << button;
        }
        dialog.response(Gtk::RESPONSE_CANCEL);
    });
    EXPECT_EQ(run(), LibraryAnswer::Cancelled);
}

TEST_F(StockLibraryDialog, ShowsThePrintersPapersWhenTheyCome)
{
    const DemoPrinter printer({});
    save("Gloss brochure", 2);
    ASSERT_TRUE(ask(printer, PrinterStockStatus::InProgress));
    const DialogScript user({
        {Library,
         [](Gtk::Dialog& dialog) {
             showPrinter(dialog);
             EXPECT_TRUE(TurnUntil([&] { return rows(dialog) == DemoPrinter::MediaCount; }))
                 << "it was asked before the dialog opened";
             EXPECT_EQ(status(dialog), "");
             press(dialog, Refresh);
             EXPECT_FALSE(isEnabled(dialog, Refresh));
             EXPECT_THAT(status(dialog), testing::HasSubstr("being retrieved"));
             const auto former = ThePanelEnvironment().printerStockList;
             EXPECT_TRUE(
                 TurnUntil([&] { return ThePanelEnvironment().printerStockList != former; }));
             EXPECT_TRUE(isEnabled(dialog, Refresh));
             select(dialog, 0);
             press(dialog, Copy);
             EXPECT_EQ(status(dialog), "The paper has been copied to your papers.");
             select(dialog, 1);
             press(dialog, Copy);
         }                                 },
        {"",      Respond(Gtk::RESPONSE_OK)}, // it replaces the user's own
        {Library,
         [](Gtk::Dialog& dialog) {
             select(dialog, 0);
             dialog.response(Gtk::RESPONSE_OK);
         }                                 },
    });
    Stock stock;
    EXPECT_EQ(run(stock), LibraryAnswer::Chosen);
    EXPECT_EQ(stock.customName(), "Plain A4");
    EXPECT_THAT(saved(), ElementsAre("Gloss brochure:1", "Plain A4:1"));
}

TEST_F(StockLibraryDialog, MarksThePrintersPapersOfTheJob)
{
    const auto printers = std::make_shared<StockLibraryList>();
    std::vector<StockLibrary> papers = {Paper("Gone"), Paper("Used"), Paper("Chosen")};
    for (StockLibrary& paper : papers) {
        printers->add(paper);
    }
    printers->setInUse(papers[0].uuid());
    const auto statuses = [&] {
        std::vector<std::int32_t> all;
        for (const StockLibrary& paper : papers) {
            all.push_back(printers->entry(paper.uuid())->status());
        }
        return all;
    };
    ThePanelEnvironment().printerStockList = printers;
    ticket_->setItem("x", JobLevelStockKey, papers[1].stock().asTicket());
    const DialogScript user(Library, [&](Gtk::Dialog& dialog) {
        EXPECT_THAT(statuses(), ElementsAre(0, 1, 0));
        showPrinter(dialog);
        select(dialog, 2);
        dialog.response(Gtk::RESPONSE_OK);
    });
    EXPECT_EQ(run(), LibraryAnswer::Chosen);
    EXPECT_THAT(statuses(), ElementsAre(0, 1, 1));
}

TEST_F(StockLibraryDialog, GivesACopyANameThatThePrinterLeavesOutOrMakesTooLong)
{
    ThePanelEnvironment().printerStockList = std::make_shared<StockLibraryList>();
    for (const std::string& name : {std::string(), std::string(300, 'x')}) {
        StockLibrary paper = Paper(name, 3);
        ThePanelEnvironment().printerStockList->add(paper);
    }
    const auto copyRow = [](const char* row) {
        return [row](Gtk::Dialog& dialog) {
            showPrinter(dialog);
            list(dialog).set_cursor(Gtk::TreePath(row));
            press(dialog, Copy);
        };
    };
    const DialogScript user({
        {Library,     copyRow("0")                 },
        {PaperWindow, Respond(Gtk::RESPONSE_CANCEL)},
        {Library,     copyRow("0")                 },
        {PaperWindow, naming("Mine")               },
        {Library,     copyRow("1")                 },
        {Library,     Respond(Gtk::RESPONSE_CANCEL)},
    });
    EXPECT_EQ(run(), LibraryAnswer::Cancelled);
    EXPECT_THAT(saved(), ElementsAre("Mine:3", std::string(255, 'x') + ":3"));
}

TEST_F(StockLibraryDialog, SaysWhyAPrinterHasNoPapers)
{
    using enum PrinterStockStatus;
    // clang-format off
    // name, the printer's options, how it ends, what is told
    const std::tuple<const char*, std::vector<std::string>, PrinterStockStatus, const char*> cases[] = {
        {"none", {"--repeat", "0"}, Complete, "The printer reports no papers."},
        {"refused", {"--misbehave", "401"}, Complete,
         "The papers of the printer could not be read: the printer answered 401 Unauthorized."},
        {"gone", {"--misbehave", "refuse"}, Failed,
         "The papers of the printer could not be retrieved. Check that it is switched on and connected, then press Refresh."},
    };
    // clang-format on
    for (const auto& [name, options, end, told] : cases) {
        SCOPED_TRACE(name);
        const DemoPrinter printer(options);
        testing::internal::CaptureStderr();
        EXPECT_TRUE(ask(printer, end));
        testing::internal::GetCapturedStderr(); // the worker's
        const DialogScript user(Library, [told = told](Gtk::Dialog& dialog) {
            showPrinter(dialog);
            EXPECT_EQ(status(dialog), told);
            EXPECT_TRUE(isEnabled(dialog, Refresh));
            dialog.response(Gtk::RESPONSE_CANCEL);
        });
        EXPECT_EQ(run(), LibraryAnswer::Cancelled);
        MyRemoveThread(0);
    }
}

TEST_F(StockLibraryDialog, SaysWhyAPapersOfThePrinterCannotBeChosen)
{
    const DemoPrinter printer({"--repeat", "0"});
    EXPECT_TRUE(ask(printer, PrinterStockStatus::Complete));
    StockLibrary odd = Paper("Odd", 77);
    odd.validateStockEntry();
    ThePanelEnvironment().printerStockList = std::make_shared<StockLibraryList>();
    ThePanelEnvironment().printerStockList->add(odd);
    const DialogScript user(Library, [](Gtk::Dialog& dialog) {
        showPrinter(dialog);
        select(dialog, 0);
        EXPECT_FALSE(CanPressOk(dialog));
        EXPECT_THAT(status(dialog), testing::HasSubstr("Copy it to your papers"));
        dialog.response(Gtk::RESPONSE_CANCEL);
    });
    EXPECT_EQ(run(), LibraryAnswer::Cancelled);
}

// Neither opening nor closing waits for it, and what it says later goes nowhere.
TEST_F(StockLibraryDialog, OpensAndClosesWhileThePrinterHangs)
{
    const DemoPrinter printer({"--misbehave", "silent"});
    ASSERT_TRUE(ask(printer, PrinterStockStatus::InProgress));
    for (int time = 0; time < 2; ++time) {
        const DialogScript user(Library, [](Gtk::Dialog& dialog) {
            showPrinter(dialog);
            EXPECT_THAT(status(dialog), testing::HasSubstr("being retrieved"));
            dialog.response(Gtk::RESPONSE_CANCEL);
        });
        EXPECT_EQ(run(), LibraryAnswer::Cancelled);
    }
    EXPECT_EQ(CurrentPrinterStockStatus(), PrinterStockStatus::InProgress);
    MyRemoveThread(0);
    TurnMainLoop();
    EXPECT_EQ(CurrentPrinterStockStatus(), PrinterStockStatus::NoThread);
}

TEST_F(StockLibraryDialog, GoesWithThePrintDialog)
{
    save("Blue", 2);
    GtkWidget* window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    gtk_widget_show(window);
    const DialogScript user({
        {Library, pressing(Edit, 0)},
        {PaperWindow,       [window](Gtk::Dialog& /*dialog*/) { gtk_widget_destroy(window); }         },
    });
    EXPECT_EQ(run(Glib::wrap(GTK_WINDOW(window))), LibraryAnswer::Cancelled);
    EXPECT_THAT(saved(), ElementsAre("Blue:2"));
}

} // namespace
} // namespace tarvo
