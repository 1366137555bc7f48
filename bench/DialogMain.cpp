// A program with a print dialog, which tells its own times in milliseconds, one a line: the
// toolkit's start, of the processor; for each of two dialogs the first paint, and the paint that
// shows the printer, with as many pages in its notebook as the second word says at least. The first
// is the printer.
#include <gtk/gtk.h>
#include <gtk/gtkunixprint.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace {

using Clock = std::chrono::steady_clock;

double Since(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

struct Watch {
    GtkPrintUnixDialog* dialog = nullptr;
    Clock::time_point start = Clock::now();
    int pages = 0;
    double painted = 0;
    double ready = 0;
};

void FindNotebook(GtkWidget* widget, gpointer found)
{
    if (GTK_IS_NOTEBOOK(widget)) {
        *static_cast<GtkWidget**>(found) = widget;
    } else if (GTK_IS_CONTAINER(widget)) {
        gtk_container_forall(GTK_CONTAINER(widget), FindNotebook, found);
    }
}

bool IsReady(const Watch& watch)
{
    GtkWidget* notebook = nullptr;
    FindNotebook(GTK_WIDGET(watch.dialog), &notebook);
    return gtk_print_unix_dialog_get_selected_printer(watch.dialog) != nullptr &&
           gtk_notebook_get_n_pages(GTK_NOTEBOOK(notebook)) >= watch.pages;
}

void Painted(GdkFrameClock* /*clock*/, gpointer data)
{
    auto& watch = *static_cast<Watch*>(data);
    watch.painted = watch.painted == 0 ? Since(watch.start) : watch.painted;
    watch.ready = watch.ready == 0 && IsReady(watch) ? Since(watch.start) : watch.ready;
}

void MeasureDialog(const char* printer, int pages)
{
    Watch watch;
    watch.pages = pages;
    GtkWidget* widget = gtk_print_unix_dialog_new(nullptr, nullptr);
    watch.dialog = GTK_PRINT_UNIX_DIALOG(widget);
    GtkPrintSettings* settings = gtk_print_settings_new();
    gtk_print_settings_set_printer(settings, printer);
    gtk_print_unix_dialog_set_settings(watch.dialog, settings);
    g_object_unref(settings);
    gtk_widget_realize(widget);
    g_signal_connect(gtk_widget_get_frame_clock(widget), "after-paint", G_CALLBACK(Painted),
                     &watch);
    gtk_widget_show(widget);
    while (watch.ready == 0) {
        g_main_context_iteration(nullptr, TRUE);
    }
    std::printf("%.3f\n%.3f\n", watch.painted, watch.ready);
    gtk_widget_destroy(widget);
}

} // namespace

int main(int count, char** words)
{
    const std::clock_t start = std::clock();
    gtk_init(nullptr, nullptr);
    std::printf("%.3f\n", static_cast<double>(std::clock() - start) * 1e3 / CLOCKS_PER_SEC);
    if (count > 2) {
        MeasureDialog(words[1], std::atoi(words[2]));
        MeasureDialog(words[1], std::atoi(words[2]));
    }
    return 0;
}
