// A program with a print dialog, which tells its own times in milliseconds, one a line. The first
// is always the toolkit's start, of the processor. What follows is ordered by the first word:
//   open PRINTER PAGES   for each of two dialogs the first paint, and the paint that shows the
//                        printer, with as many pages in the dialog's notebook at least
//   switch PRINTER TAB   that tab's first opening, a hundred changes of the panel in it with their
//                        paint, and those without, of the processor
//   wait PRINTER OTHER   the main loop's longest pauses while the other printer is chosen, and then
//                        while its print server does not answer
#include "host/DialogDriver.h"

#include <chrono>
#include <csignal>
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

void FindNextButton(GtkWidget* widget, gpointer found)
{
    if (GTK_IS_BUTTON(widget) &&
        g_strcmp0(gtk_buildable_get_name(GTK_BUILDABLE(widget)), "Tshl1967") == 0) {
        *static_cast<GtkWidget**>(found) = widget;
    } else if (GTK_IS_CONTAINER(widget)) {
        gtk_container_forall(GTK_CONTAINER(widget), FindNextButton, found);
    }
}

double ProcessorSince(std::clock_t start)
{
    return static_cast<double>(std::clock() - start) * 1e3 / CLOCKS_PER_SEC;
}

// Each change is painted before the next.
bool MeasureSwitches(const char* printer, const char* tab)
{
    constexpr int Changes = 100;
    const tarvo::DialogDriver driver;
    GtkWidget* next = nullptr;
    if (!driver.choose(printer) || !tarvo::TurnUntil([&] { return driver.tab(tab) != nullptr; })) {
        return false;
    }
    const std::clock_t opening = std::clock();
    if (!driver.showTab(tab)) {
        return false;
    }
    const double opened = ProcessorSince(opening);
    FindNextButton(GTK_WIDGET(driver.dialog()), &next);
    int paints = 0;
    g_signal_connect(
        gtk_widget_get_frame_clock(next), "after-paint",
        G_CALLBACK(+[](GdkFrameClock*, gpointer count) { ++*static_cast<int*>(count); }), &paints);
    double changing = 0;
    const std::clock_t start = std::clock();
    for (int change = 0; change < Changes; ++change) {
        const int before = paints;
        const std::clock_t click = std::clock();
        gtk_button_clicked(GTK_BUTTON(next));
        changing += ProcessorSince(click);
        while (paints == before) {
            g_main_context_iteration(nullptr, TRUE);
        }
    }
    std::printf("%.3f\n%.3f\n%.3f\n", opened, ProcessorSince(start), changing);
    return true;
}

// The longest time between two turns of a main loop that has something to do each millisecond.
struct Pauses {
    Clock::time_point last = Clock::now();
    double longest = 0;
};

gboolean Turned(gpointer data)
{
    auto& pauses = *static_cast<Pauses*>(data);
    pauses.longest = std::max(pauses.longest, Since(pauses.last));
    pauses.last = Clock::now();
    return G_SOURCE_CONTINUE;
}

// Until the toolkit has drawn what it has chosen.
bool SettleDown()
{
    constexpr double Long = 500;
    const Clock::time_point start = Clock::now();
    while (Since(start) < Long) {
        g_main_context_iteration(nullptr, TRUE);
    }
    return true;
}

bool MeasureWait(const char* printer, const char* other)
{
    constexpr double Watched = 2'000; // before an inquiry of ours is given up
    const tarvo::DialogDriver driver;
    if (!driver.choose(other) || !driver.choose(printer)) { // so that the dialog knows both
        return false;
    }
    const pid_t server = std::atoi(std::getenv("CUPSD_PID"));
    kill(server, SIGSTOP);
    Pauses choosing;
    // Before everything else that is due, so that only what cannot be interrupted counts.
    guint source = g_timeout_add_full(G_PRIORITY_HIGH, 1, Turned, &choosing, nullptr);
    const bool isChosen = driver.choose(other) && SettleDown();
    g_source_remove(source);
    Pauses waiting;
    source = g_timeout_add_full(G_PRIORITY_HIGH, 1, Turned, &waiting, nullptr);
    const Clock::time_point start = Clock::now();
    while (isChosen && Since(start) < Watched) {
        g_main_context_iteration(nullptr, TRUE);
    }
    g_source_remove(source);
    kill(server, SIGCONT);
    std::printf("%.3f\n%.3f\n", choosing.longest, waiting.longest);
    return isChosen;
}

} // namespace

int main(int count, char** words)
{
    const std::clock_t start = std::clock();
    gtk_init(nullptr, nullptr);
    std::printf("%.3f\n", ProcessorSince(start));
    const std::string order = count > 3 ? words[1] : "";
    bool isMeasured = true;
    if (order == "open") {
        MeasureDialog(words[2], std::atoi(words[3]));
        MeasureDialog(words[2], std::atoi(words[3]));
    } else if (order == "switch") {
        isMeasured = MeasureSwitches(words[2], words[3]);
    } else if (order == "wait") {
        isMeasured = MeasureWait(words[2], words[3]);
    }
    return isMeasured ? 0 : 1;
}
