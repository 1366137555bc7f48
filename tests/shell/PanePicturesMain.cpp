// Draws the pane with each of its panels, and the dialogs, into PNG files to look at: in the
// language of the process, with text at its size and at twice that. Usage: tarvo-pane-pictures
// FOLDER
#include "DialogSession.h"
#include "panels/advanced/JobTicketFiles.h"
#include "panels/finishing/FinishingDialogs.h"
#include "panels/paper/BackgroundFormsDialog.h"
#include "panels/paper/SaveJobAsDialog.h"
#include "panels/stock/AdvancedStockDialog.h"
#include "panels/stock/CustomSizeDialog.h"
#include "panels/stock/StockFieldDialogs.h"
#include "panels/stock/StockLibraryColumnsDialog.h"
#include "panels/stock/StockLibraryDialog.h"
#include "panels/toolkit/Dialogs.h"
#include "records/BackgroundFormsOptions.h"
#include "records/Stock.h"
#include "settings/SettingMap.h"
#include "settings/TicketKeys.h"
#include "shell/PanelTable.h"
#include "shell/Shell.h"
#include "shell/ShellCommands.h"
#include "stocklibrary/StockLibraryList.h"
#include "support/BuiltBundle.h"
#include "support/DialogScript.h"
#include "support/Entries.h"
#include "support/FinishedSets.h"
#include "support/StockText.h"

#include <gdkmm/pixbuf.h>
#include <gdkmm/window.h>
#include <gtkmm/main.h>
#include <gtkmm/offscreenwindow.h>
#include <gtkmm/settings.h>

#include <cstdio>
#include <cstdlib>

namespace tarvo {
namespace {

constexpr int DotsPerInch = 96 * 1024; // as GTK counts them

// A job for which the printer is not made.
void FillWithConflicts(PMTicket& ticket)
{
    ticket.setItem(PanelClient, JobLevelStockKey, Entries("Type", 2)); // a transparency
    ticket.setItem(PanelClient, JobTypeKey, Entries("JobType", 5));    // a fax
    ticket.setItem(PanelClient, DuplexKey, 2);
    ticket.setItem(PanelClient, FinishingOptionsKey, 18);
    ticket.setItem(PanelClient, FoldValueKey, 19);
    ticket.setItem(PanelClient, OutputDestinationKey, 7);
}

// Draws the dialog that the function runs, and cancels it.
void DrawDialog(const std::string& path, const std::function<void()>& run)
{
    const DialogAnswer answer([&path](Gtk::Dialog& dialog) {
        for (int turn = 0; turn < 50; ++turn) { // until it has its size
            TurnMainLoop();
            g_usleep(2'000);
        }
        const auto window = dialog.get_window();
        Gdk::Pixbuf::create(window, 0, 0, window->get_width(), window->get_height())
            ->save(path, "png");
        std::puts(path.c_str());
        dialog.response(Gtk::RESPONSE_CANCEL);
    });
    run();
}

// High enough for all of a panel, which a print dialog scrolls.
void DrawPanels(const CFBundle& bundle, const std::string& prefix, int scale)
{
    DialogSession dialog;
    dialog.session.ticket(PrinterInfoTicketName)
        ->setItem("host", PPDPathKey, TARVO_SOURCE_DIR "/resources/ppd/TarvoQL900.ppd");
    Gtk::OffscreenWindow window;
    Gtk::Box pane;
    window.set_size_request(540, 800 * scale);
    window.add(pane);
    window.show_all();
    Shell shell(&bundle, PanelMap);
    shell.initialize(nullptr, GTK_CONTAINER(pane.gobj()), &dialog.session);
    shell.open();
    const auto& panels = FindWidget<Gtk::ComboBox>(pane, "Tshl16")->get_model()->children();
    for (std::size_t number = 1; number <= panels.size(); ++number) {
        TurnMainLoop();
        const std::string path = prefix + "-" + std::to_string(number) + ".png";
        window.get_pixbuf()->save(path, "png");
        std::puts(path.c_str());
        shell.handleControlHit(ShellSignature, NextPanelControl);
    }
    FillWithConflicts(dialog.ticket());
    shell.sync(&dialog.session, SyncDirection::FromTicket);
    TurnMainLoop();
    window.get_pixbuf()->save(prefix + "-conflicts.png", "png");
    DrawDialog(prefix + "-print-anyway.png",
               [&shell] { shell.handleControlHit(0, TARVO_DEFAULT_BUTTON); });
}

// One for each job type that has something to set up.
void DrawJobTypeDialogs(const CFBundle& bundle, const std::string& prefix)
{
    for (const auto& [name, type] : {
             std::pair("save", 3), {"fax",     5},
               {"secure",  6},
               {"delayed", 7}
    }) {
        DrawDialog(prefix + "-" + name + ".png", [&bundle, type = type] {
            const JobTypeDetails details = {.type = type,
                                            .savedName = "Spring Programme",
                                            .savedLocation = "file:///job-repository/",
                                            .printTime = {1'800'000'000}};
            static_cast<void>(RunSaveJobAsDialog(nullptr, bundle, details));
        });
    }
    DrawDialog(prefix + "-forms.png", [&bundle] {
        static_cast<void>(RunBackgroundFormsDialog(nullptr, bundle, BackgroundFormsOptions()));
    });
}

void DrawDialogs(const CFBundle& bundle, const std::string& prefix)
{
    DrawJobTypeDialogs(bundle, prefix);
    DrawDialog(prefix + "-value.png", [&bundle] {
        std::optional<std::string> text = "Trim";
        std::int32_t result = 0;
        RunModalCustomValueDialog(bundle, nullptr, 40, text, result);
    });
    DrawDialog(prefix + "-notice.png", [&bundle] {
        DisplayNotice(bundle, nullptr, "Invalid Secure Print Passcode Header",
                      "Invalid Secure Print Passcode Message");
    });
    DrawDialog(prefix + "-import.png", [&bundle] {
        ShowImportSummary(bundle, {
                                      {{"/jobs/spring brochure.xml", std::nullopt},
                                       {"/jobs/summer.xml", ParseError{12, "mismatched tag"}}},
                                      23
        });
    });
}

// A dialog of each family, with everything that there is, for a job on blue paper.
void DrawFinishingDialogs(const CFBundle& bundle, const std::string& prefix)
{
    FinishedSet set;
    set.finishing.option = 49;
    set.finishing.twoStaples = 10;
    set.finishing.punch = 32;
    set.paperColor = 2;
    for (const FinishingOffer& offer : AllFinishingOffers) {
        DrawDialog(prefix + "-finishing-" + std::to_string(offer.option) + ".png", [&] {
            RunFinishingDialog(nullptr, bundle, offer.option, set, AllFinishingOffers);
        });
    }
    set.finishing.offset = 5;
    set.finishing.slipSheet = 2;
    DrawDialog(prefix + "-offset.png",
               [&] { RunOffsetSetupDialog(nullptr, bundle, set, OffsetOffers()); });
    DrawDialog(prefix + "-booklet.png",
               [&] { RunModalBookletFinishingDialog(nullptr, bundle, set, true); });
}

// Some papers for the library's pictures, where the user's preferences are.
void SavePapers()
{
    StockLibraryList list(UserPreferenceFolders());
    for (const auto& [name, ticket] : {
             std::pair("Letterhead", "Size=4 Type=3 Color=1 Weight=90"),
             {"Spring cover", "Size=4 Type=1 Color=3 Weight=160"},
             {"Odd",          "Size=4 Type=1 Color=77 Weight=90"}
    }) {
        StockLibrary paper;
        paper.setName(name);
        paper.stock() = StockOf(ticket);
        paper.stock().setCustomName(name);
        list.add(paper);
    }
}

using StockDialog = OSStatus (*)(const CFBundle&, Gtk::Window*, Stock&, std::int32_t&);

const std::pair<const char*, StockDialog> StockPictures[] = {
    {"stock-color",       RunModalCustomStockColorSetup},
    {"stock-type",        RunModalCustomStockTypeSetup },
    {"stock-ordered",     RunModalOrderedStockSetup    },
    {"stock-tabs",        RunModalPreCutTabStockSetup  },
    {"stock-description", RunModalStockDescriptionSetup},
};

void DrawStockDialogs(const CFBundle& bundle, const std::string& prefix)
{
    Stock stock;
    std::int32_t result = 0;
    for (const auto& [name, run] : StockPictures) {
        DrawDialog(prefix + "-" + name + ".png",
                   [&, run = run] { run(bundle, nullptr, stock, result); });
    }
    DrawDialog(prefix + "-stock-size.png", [&] {
        std::int32_t width = 21000;
        std::int32_t length = 29700;
        RunModalCustomStockSizeDialog(bundle, nullptr, width, length, result);
    });
    DrawDialog(prefix + "-stock-name.png", [&] {
        std::string name = "Spring cover";
        RunModalStockNameSetup(bundle, nullptr, name, result);
    });
    DrawDialog(prefix + "-stock-advanced.png", [&] {
        RunModalAdvancedStockSelection(bundle, nullptr, JobContext::Cover, stock, result);
    });
    DrawDialog(prefix + "-stock-named.png", [&] {
        bool replaces = false;
        RunModalNamedPaperStockSelection(bundle, nullptr, {}, stock, result, replaces);
    });
    DrawDialog(prefix + "-stock-library.png", [&] {
        LibraryAnswer answer = LibraryAnswer::Cancelled;
        RunModalStockLibraryDialog(bundle, nullptr, JobContext::Cover, stock, answer);
    });
    DrawDialog(prefix + "-stock-columns.png", [&] {
        StockLibraryView view;
        RunModalStockLibraryColumnsDialog(bundle, nullptr, view, result);
    });
}

} // namespace
} // namespace tarvo

int main(int argc, char** argv)
{
    using namespace tarvo;
    Gtk::Main::init_gtkmm_internals();
    if (argc != 2 || gtk_init_check(&argc, &argv) == FALSE) {
        std::fputs("usage: tarvo-pane-pictures FOLDER, with a display\n", stderr);
        return 2;
    }
    const CFBundle bundle(BuiltBundleFolder, UserLanguages());
    std::filesystem::create_directories(argv[1]);
    setenv("XDG_CONFIG_HOME", (std::string(argv[1]) + "/home").c_str(), 1);
    SavePapers();
    Gtk::Settings::get_default()->property_gtk_enable_animations() = false; // no state half way
    for (const int scale : {1, 2}) {
        Gtk::Settings::get_default()->property_gtk_xft_dpi() = scale * DotsPerInch;
        const std::string prefix = std::string(argv[1]) + "/" + UserLanguages().front() + "-" +
                                   std::to_string(scale * 100);
        DrawPanels(bundle, prefix, scale);
        DrawDialogs(bundle, prefix);
        DrawFinishingDialogs(bundle, prefix);
        DrawStockDialogs(bundle, prefix);
    }
    return 0;
}
