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

// A window that waits; knows when it goes.
class WaitingWindow {
public:
    explicit WaitingWindow(Gtk::Window& window) : window_(GTK_WIDGET(window.gobj()))
    {
        g_object_ref(window_);
        handler_ = g_signal_connect_swapped(window_, "destroy", G_CALLBACK(OnDestroy), &isGone_);
        gtk_widget_set_sensitive(window_, FALSE);
    }
    WaitingWindow(const WaitingWindow&) = delete;
    WaitingWindow& operator=(const WaitingWindow&) = delete;
    ~WaitingWindow()
    {
        if (!isGone_) {
            g_signal_handler_disconnect(window_, handler_);
            gtk_widget_set_sensitive(window_, TRUE);
        }
        g_object_unref(window_);
    }
    bool isGone() const { return isGone_; }

private:
    static void OnDestroy(bool* isGone) { *isGone = true; }

    GtkWidget* window_;
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
