// What choosing among many papers costs, in milliseconds of the processor, one a line: reading the
// user's library, which a task does; making the stock menu of it; a library's rows and the first
// paint of a list of them.
// Usage: tarvo-bench-stock-dialog PAPERS, with a display and preference folders of its own.
#include "panels/stock/StockListColumns.h"
#include "panels/stock/StockListModel.h"
#include "panels/toolkit/MenuWidget.h"
#include "platform/bundle/CFBundle.h"
#include "records/StockMenu.h"
#include "stocklibrary/RecentPapers.h"
#include "stocklibrary/StockLibraryList.h"
#include "stocklibrary/StockLibraryReader.h"

#include <gtkmm/main.h>
#include <gtkmm/scrolledwindow.h>
#include <gtkmm/treeview.h>
#include <gtkmm/window.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace tarvo {
namespace {

double Since(std::clock_t start)
{
    return static_cast<double>(std::clock() - start) * 1e3 / CLOCKS_PER_SEC;
}

void SavePapers(int count)
{
    const auto fill = [count](StockLibraryList& list, CFArray& order) {
        for (int number = 0; number < count; ++number) {
            StockLibrary paper;
            paper.setName("Paper " + std::to_string(number));
            paper.stock().setCustomName(paper.name());
            paper.stock().setColor(number % 6 + 1);
            paper.stock().setWeight(60 + number % 140);
            order.emplace_back(list.add(paper));
        }
        return true;
    };
    PreferenceFailure failure;
    if (!ChangeStockLibrary(UserPreferenceFolders(), fill, failure)) {
        std::fprintf(stderr, "%s\n", failure.message().c_str());
        std::exit(1);
    }
}

double MeasureReading(StockLibraryReader& library)
{
    const std::clock_t start = std::clock();
    library.read();
    return Since(start);
}

double MeasureMenu(const CFBundle& bundle, StockLibraryReader& library)
{
    const std::clock_t start = std::clock();
    const auto papers = RecentPapers(*library.read(), nullptr);
    const auto menu =
        MakeMenuWidget(PopulateStockMenu(bundle, JobContext::Cover, Stock(), papers), {});
    return Since(start);
}

// In a window that is there already, from the library in memory to the paint of its rows.
double MeasureRows(const CFBundle& bundle)
{
    const auto list = std::shared_ptr<StockLibraryList>(ReadUserStockList(UserPreferenceFolders()));
    Gtk::Window window;
    Gtk::ScrolledWindow scrolled;
    Gtk::TreeView view;
    view.set_fixed_height_mode(true);
    MakeStockColumns(bundle, view, {});
    scrolled.add(view);
    window.add(scrolled);
    window.set_default_size(800, 400);
    window.show_all();
    while (g_main_context_iteration(nullptr, FALSE) != FALSE) {
    }
    int paints = 0;
    g_signal_connect(
        gtk_widget_get_frame_clock(GTK_WIDGET(window.gobj())), "after-paint",
        G_CALLBACK(+[](GdkFrameClock*, gpointer count) { ++*static_cast<int*>(count); }), &paints);
    const std::clock_t start = std::clock();
    const std::shared_ptr<const CFDictionary> papers(list, &list->stockList());
    view.set_model(StockListModel::Create(bundle, papers));
    while (paints == 0) {
        g_main_context_iteration(nullptr, TRUE);
    }
    const double time = Since(start);
    view.unset_model();
    return time;
}

} // namespace
} // namespace tarvo

int main(int argc, char** argv)
{
    using namespace tarvo;
    if (argc != 2 || gtk_init_check(&argc, &argv) == FALSE) {
        std::fputs("usage: tarvo-bench-stock-dialog PAPERS, with a display\n", stderr);
        return 2;
    }
    Gtk::Main::init_gtkmm_internals();
    const CFBundle bundle(TARVO_BUNDLE_FOLDER, {"en"});
    SavePapers(std::atoi(argv[1]));
    const double rows = MeasureRows(bundle); // first: what every window pays for is no menu's
    StockLibraryReader library(UserPreferenceFolders());
    for (const double time : {MeasureReading(library), MeasureMenu(bundle, library), rows}) {
        std::printf("%.3f\n", time);
    }
    return 0;
}
