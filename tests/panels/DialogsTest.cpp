#include "panels/toolkit/Dialogs.h"

#include "panels/toolkit/BackgroundWork.h"
#include "panels/toolkit/DesktopServices.h"
#include "support/BuiltBundle.h"
#include "support/Widgets.h"

#include <glibmm/main.h>
#include <gmock/gmock.h>
#include <gtkmm/button.h>
#include <gtkmm/entry.h>
#include <gtkmm/messagedialog.h>

#include <fstream>
#include <thread>

namespace tarvo {
namespace {

struct ValueCase {
    const char* name;
    std::optional<std::string> before;
    int response;
    std::int32_t result;
    std::optional<std::string> after;
};

const ValueCase ValueCases[] = {
    {"OK",        "Trim",       Gtk::RESPONSE_OK,           DialogOk,     "Trim!"     },
    {"no text",   std::nullopt, Gtk::RESPONSE_OK,           DialogOk,     "!"         },
    {"Cancel",    "Trim",       Gtk::RESPONSE_CANCEL,       DialogCancel, std::nullopt},
    {"close box", "Trim",       Gtk::RESPONSE_DELETE_EVENT, DialogCancel, std::nullopt},
};

TEST(CustomValueDialog, GivesTheTextOnlyOnOk)
{
    const CFBundle bundle = BuiltBundle();
    for (const auto& row : ValueCases) {
        SCOPED_TRACE(row.name);
        auto text = row.before;
        std::int32_t result = 0;
        const DialogAnswer answer([&row](Gtk::Dialog& dialog) {
            EXPECT_THAT(AccessibilityFaults(dialog), testing::IsEmpty());
            auto* field = FindWidget<Gtk::Entry>(dialog, "TPDE123456");
            EXPECT_TRUE(field->is_focus());
            field->set_text(field->get_text() + "!");
            dialog.response(row.response);
        });
        EXPECT_EQ(RunModalCustomValueDialog(bundle, nullptr, 8, text, result), StatusOk);
        EXPECT_EQ(result, row.result);
        EXPECT_EQ(text, row.after);
    }
}

TEST(Dialogs, AreGoneOnceTheyAreAnswered)
{
    const CFBundle bundle = BuiltBundle();
    std::size_t left = 0; // by the toolkit itself, the first time
    for (int time = 0; time < 4; ++time) {
        const DialogAnswer answer(
            [](Gtk::Dialog& dialog) { dialog.response(Gtk::RESPONSE_CANCEL); });
        std::optional<std::string> text;
        std::int32_t result = 0;
        RunModalCustomValueDialog(bundle, nullptr, 8, text, result);
        TurnMainLoop();
        const std::size_t windows = Gtk::Window::list_toplevels().size();
        left = time == 0 ? windows : left;
        EXPECT_EQ(windows, left);
    }
}

TEST(CustomValueDialog, IsCancelledWhenItCannotBeShown)
{
    for (const char* description :
         {"", "<interface>", "<interface/>",
          "<interface><object class='NoSuch' id='CustomValue'/></interface>",
          "<interface><object class='GtkBox' id='CustomValue'/></interface>"}) {
        SCOPED_TRACE(description);
        const BundleCopy copy;
        std::ofstream(copy.resource("Utilities.ui")) << description;
        std::optional<std::string> text = "Trim";
        std::int32_t result = 0;
        EXPECT_NE(RunModalCustomValueDialog(copy.bundle(), nullptr, 8, text, result), StatusOk);
        EXPECT_EQ(result, DialogCancel);
        EXPECT_EQ(text, std::nullopt);
    }
}

TEST(FileChoosers, GoWithTheirWindow)
{
    const CFBundle bundle = BuiltBundle();
    const auto save = [&](Gtk::Window* parent) {
        return TheDesktopServices().chooseFileToSave(bundle, parent, "ExportTitle").has_value();
    };
    const auto open = [&](Gtk::Window* parent) {
        return !TheDesktopServices().chooseFilesToOpen(bundle, parent, "ImportTitle", {}).empty();
    };
    for (const std::function<bool(Gtk::Window*)>& choose :
         {std::function(save), std::function(open)}) {
        GtkWidget* window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
        gtk_widget_show(window);
        Gtk::Dialog* chooser = nullptr;
        const DialogAnswer answer([&](Gtk::Dialog& dialog) {
            chooser = &dialog;
            gtk_widget_destroy(window);
        });
        EXPECT_FALSE(choose(Glib::wrap(GTK_WINDOW(window))));
        EXPECT_THAT(Gtk::Window::list_toplevels(), testing::Not(testing::Contains(chooser)));
    }
}

TEST(Notice, TellsWhatIsWrongAndWhatToDo)
{
    Gtk::Window window;
    window.show();
    const DialogAnswer answer([](Gtk::Dialog& dialog) {
        auto* notice = dynamic_cast<Gtk::MessageDialog*>(&dialog);
        ASSERT_NE(notice, nullptr);
        EXPECT_EQ(notice->property_text().get_value(), "The secure print job has no passcode.");
        EXPECT_NE(notice->property_secondary_text().get_value(), "");
        dialog.response(Gtk::RESPONSE_OK);
    });
    DisplayNotice(BuiltBundle(), &window, "Invalid Secure Print Passcode Header",
                  "Invalid Secure Print Passcode Message");
}

TEST(BackgroundWork, LetsTheApplicationGoOn)
{
    Gtk::Window window;
    window.show();
    bool wasSensitive = true;
    std::atomic<bool> goOn = false;
    const auto let = [&] { // an event of the application, while the work waits for it
        wasSensitive = window.get_sensitive();
        goOn = true;
        return false;
    };
    Glib::signal_timeout().connect(let, 1);
    EXPECT_TRUE(RunInBackground(&window, [&goOn] {
        while (!goOn) {
            std::this_thread::yield();
        }
    }));
    EXPECT_FALSE(wasSensitive);
    EXPECT_TRUE(window.get_sensitive());
    EXPECT_FALSE(RunInBackground(&window, [] { throw std::runtime_error("the disk is full"); }));
    EXPECT_FALSE(RunInBackground(nullptr, [] { throw std::runtime_error("the disk is full"); }));
}

// A disk that never answers must not keep a window that the user has closed.
TEST(BackgroundWork, IsLeftAloneWhenTheWindowGoes)
{
    GtkWidget* raw = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    gtk_widget_show(raw);
    const auto goOn = std::make_shared<std::atomic<bool>>(false);
    const auto hasEnded = std::make_shared<std::atomic<bool>>(false);
    Glib::signal_timeout().connect(
        [raw] {
            gtk_widget_destroy(raw);
            return false;
        },
        1);
    EXPECT_FALSE(RunInBackground(Glib::wrap(GTK_WINDOW(raw)), [goOn, hasEnded] {
        while (!*goOn) {
            std::this_thread::yield();
        }
        *hasEnded = true;
    }));
    *goOn = true;
    while (!*hasEnded) {
        std::this_thread::yield();
    }
}

} // namespace
} // namespace tarvo
