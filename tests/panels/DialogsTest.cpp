#include "panels/toolkit/Dialogs.h"

#include "panels/toolkit/BackgroundWork.h"
#include "panels/toolkit/DesktopServices.h"
#include "support/BuiltBundle.h"
#include "support/DialogScript.h"

#include <glibmm/main.h>
#include <gmock/gmock.h>
#include <gtkmm/button.h>
#include <gtkmm/entry.h>
#include <gtkmm/messagedialog.h>

#include <fstream>
#include <thread>

namespace tarvo {
namespace {

using Text = std::optional<std::string>;

// name, text before, response, result, text afterwards
const std::tuple<const char*, Text, int, std::int32_t, Text> ValueCases[] = {
    {"OK",        "Trim",       Gtk::RESPONSE_OK,           DialogOk,     "Trim!"     },
    {"no text",   std::nullopt, Gtk::RESPONSE_OK,           DialogOk,     "!"         },
    {"Cancel",    "Trim",       Gtk::RESPONSE_CANCEL,       DialogCancel, std::nullopt},
    {"close box", "Trim",       Gtk::RESPONSE_DELETE_EVENT, DialogCancel, std::nullopt},
};

TEST(CustomValueDialog, GivesTheTextOnlyOnOk)
{
    const CFBundle bundle = BuiltBundle();
    for (const auto& [name, before, response, expected, after] : ValueCases) {
        SCOPED_TRACE(name);
        auto text = before;
        std::int32_t result = 0;
        const DialogAnswer answer([response = response](Gtk::Dialog& dialog) {
            EXPECT_THAT(AccessibilityFaults(dialog), testing::IsEmpty());
            auto* field = FindWidget<Gtk::Entry>(dialog, "TPDE123456");
            EXPECT_TRUE(field->is_focus());
            field->set_text(field->get_text() + "!");
            dialog.response(response);
        });
        EXPECT_EQ(RunModalCustomValueDialog(bundle, nullptr, 8, text, result), StatusOk);
        EXPECT_EQ(result, expected);
        EXPECT_EQ(text, after);
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

TEST(BackgroundWork, LeavesAModalDialogModalAndTheFocusWhereItIs)
{
    Gtk::Dialog dialog;
    Gtk::Entry first;
    Gtk::Entry second;
    dialog.get_content_area()->add(first);
    dialog.get_content_area()->add(second);
    dialog.get_content_area()->show_all();
    dialog.set_modal(true);
    dialog.show();
    second.grab_focus();
    GtkWidget* const widget = GTK_WIDGET(dialog.gobj());
    ASSERT_TRUE(gtk_widget_has_grab(widget));
    bool isOthersTurn = false;
    Glib::signal_timeout().connect(
        [&] {
            isOthersTurn = gtk_grab_get_current() == nullptr;
            return false;
        },
        1);
    EXPECT_TRUE(RunInBackground(
        &dialog, [] { std::this_thread::sleep_for(std::chrono::milliseconds(20)); }));
    EXPECT_FALSE(isOthersTurn) << "the window behind it";
    EXPECT_EQ(gtk_grab_get_current(), widget);
    EXPECT_TRUE(second.is_focus());
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
