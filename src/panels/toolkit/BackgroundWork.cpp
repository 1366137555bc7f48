#include "panels/toolkit/BackgroundWork.h"

#include "panels/PanelEnvironment.h"
#include "panels/toolkit/Guarded.h"
#include "platform/ports/Task.h"

#include <gtk/gtk.h>

#include <atomic>
#include <memory>

namespace tarvo {
namespace {

// What the task and the waiting share.
struct Progress {
    std::atomic<bool> isDone = false;
    std::atomic<bool> isSuccess = false;
};

void DoWork(const std::function<void()>& work, Progress& progress)
{
    try {
        work();
        progress.isSuccess = true;
    } catch (...) {
        ReportCaughtException();
    }
    progress.isDone = true;
    g_main_context_wakeup(nullptr); // the application's
}

// A window that waits; knows when it goes. An insensitive window loses the user's input and the
// focus in it, so a modal one has both given back, and nobody else gets the input meanwhile.
class WaitingWindow {
public:
    explicit WaitingWindow(Gtk::Window& window) : window_(GTK_WIDGET(window.gobj()))
    {
        g_object_ref(window_);
        handler_ = g_signal_connect_swapped(window_, "destroy", G_CALLBACK(OnDestroy), &isGone_);
        g_set_weak_pointer(&focus_, gtk_window_get_focus(GTK_WINDOW(window_)));
        const bool isModal = gtk_widget_has_grab(window_) != FALSE;
        gtk_widget_set_sensitive(window_, FALSE);
        if (isModal) {
            blocker_ = gtk_invisible_new_for_screen(gtk_widget_get_screen(window_));
            gtk_widget_show(blocker_);
            gtk_grab_add(blocker_);
        }
    }
    WaitingWindow(const WaitingWindow&) = delete;
    WaitingWindow& operator=(const WaitingWindow&) = delete;
    ~WaitingWindow()
    {
        if (!isGone_) {
            g_signal_handler_disconnect(window_, handler_);
            gtk_widget_set_sensitive(window_, TRUE);
            giveBackInput();
        }
        if (blocker_ != nullptr) {
            gtk_widget_destroy(blocker_);
        }
        g_clear_weak_pointer(&focus_);
        g_object_unref(window_);
    }
    bool isGone() const { return isGone_; }

private:
    static void OnDestroy(bool* isGone) { *isGone = true; }
    void giveBackInput() const
    {
        if (blocker_ != nullptr) {
            gtk_grab_remove(blocker_);
            gtk_grab_add(window_);
        }
        if (focus_ != nullptr && gtk_widget_get_toplevel(focus_) == window_) {
            gtk_window_set_focus(GTK_WINDOW(window_), focus_);
        }
    }

    GtkWidget* window_;
    GtkWidget* focus_ = nullptr;
    GtkWidget* blocker_ = nullptr; // takes the input in place of a modal window
    gulong handler_ = 0;
    bool isGone_ = false;
};

// Gives whether the work has been done while the window was there.
bool Wait(Gtk::Window& window, const Progress& progress)
{
    const WaitingWindow waiting(window);
    while (!progress.isDone && !waiting.isGone()) {
        g_main_context_iteration(nullptr, TRUE);
    }
    return progress.isSuccess && !waiting.isGone();
}

} // namespace

bool RunInBackground(Gtk::Window* window, const std::function<void()>& work)
{
    const auto progress = std::make_shared<Progress>();
    if (window == nullptr || StartTask([progress, work] { DoWork(work, *progress); }) != StatusOk) {
        DoWork(work, *progress);
        return progress->isSuccess;
    }
    const DialogHandle dialog;
    const bool isSuccess = Wait(*window, *progress);
    return dialog.restore() && isSuccess;
}

} // namespace tarvo
