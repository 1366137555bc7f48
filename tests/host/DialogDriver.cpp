#include "DialogDriver.h"

#include <cairo-pdf.h>
#include <unistd.h>

#include <chrono>
#include <vector>

namespace tarvo {
namespace {

constexpr std::chrono::seconds Never{30};

void Collect(GtkWidget* widget, gpointer widgets)
{
    static_cast<std::vector<GtkWidget*>*>(widgets)->push_back(widget);
    if (GTK_IS_CONTAINER(widget)) {
        gtk_container_forall(GTK_CONTAINER(widget), Collect, widgets);
    }
}

template <typename Predicate>
GtkWidget* FindWidget(GtkPrintUnixDialog* dialog, Predicate accepts)
{
    std::vector<GtkWidget*> widgets;
    Collect(GTK_WIDGET(dialog), &widgets);
    for (GtkWidget* widget : widgets) {
        if (accepts(widget)) {
            return widget;
        }
    }
    return nullptr;
}

// The toolkit keeps its printers in a column of any objects.
int PrinterColumn(GtkTreeModel* model)
{
    for (int column = 0; column < gtk_tree_model_get_n_columns(model); ++column) {
        if (gtk_tree_model_get_column_type(model, column) == G_TYPE_OBJECT) {
            return column;
        }
    }
    return -1;
}

bool IsPrinter(GtkTreeModel* model, GtkTreeIter* row, const std::string& name)
{
    GObject* object = nullptr;
    gtk_tree_model_get(model, row, PrinterColumn(model), &object, -1);
    const bool isIt = GTK_IS_PRINTER(object) && gtk_printer_get_name(GTK_PRINTER(object)) == name;
    g_clear_object(&object);
    return isIt;
}

// The toolkit's menus of a printer's choices have the keywords in a column of their own.
bool ChooseKeyword(GtkComboBox* menu, const std::string& keyword)
{
    constexpr int KeywordColumn = 1;
    GtkTreeModel* model = gtk_combo_box_get_model(menu);
    if (model == nullptr || gtk_tree_model_get_n_columns(model) <= KeywordColumn ||
        gtk_tree_model_get_column_type(model, KeywordColumn) != G_TYPE_STRING) {
        return false;
    }
    gtk_combo_box_set_id_column(menu, KeywordColumn);
    return gtk_combo_box_set_active_id(menu, keyword.c_str()) == TRUE;
}

std::string WriteDocument()
{
    const std::string path =
        std::string(g_get_tmp_dir()) + "/tarvo-page-" + std::to_string(getpid()) + ".pdf";
    cairo_surface_t* surface = cairo_pdf_surface_create(path.c_str(), 595, 842);
    cairo_t* page = cairo_create(surface);
    cairo_show_page(page);
    cairo_destroy(page);
    cairo_surface_destroy(surface);
    return path;
}

} // namespace

bool TurnUntil(const std::function<bool()>& condition)
{
    const auto end = std::chrono::steady_clock::now() + Never;
    const guint wake = g_timeout_add(
        5, [](gpointer) -> gboolean { return G_SOURCE_CONTINUE; }, nullptr);
    bool holds = condition();
    while (!holds && std::chrono::steady_clock::now() < end) {
        g_main_context_iteration(nullptr, TRUE);
        holds = condition();
    }
    g_source_remove(wake);
    return holds;
}

DialogDriver::DialogDriver()
    : dialog_(GTK_PRINT_UNIX_DIALOG(gtk_print_unix_dialog_new(nullptr, nullptr)))
{
    g_signal_connect(dialog_, "response", G_CALLBACK(+[](GtkDialog*, gint, gpointer isAnswered) {
                         *static_cast<bool*>(isAnswered) = true;
                     }),
                     &isAnswered_);
    gtk_widget_show(GTK_WIDGET(dialog_));
    TurnUntil([this] { return !chosen().empty(); });
}

void DialogDriver::close()
{
    if (dialog_ != nullptr) {
        gtk_widget_destroy(GTK_WIDGET(dialog_));
        dialog_ = nullptr;
    }
}

std::string DialogDriver::chosen() const
{
    GtkPrinter* printer = gtk_print_unix_dialog_get_selected_printer(dialog_);
    return printer == nullptr ? "" : gtk_printer_get_name(printer);
}

bool DialogDriver::choose(const std::string& printer) const
{
    GtkWidget* view = FindWidget(dialog_, [](GtkWidget* widget) {
        return GTK_IS_TREE_VIEW(widget) &&
               PrinterColumn(gtk_tree_view_get_model(GTK_TREE_VIEW(widget))) >= 0;
    });
    GtkTreeModel* model = gtk_tree_view_get_model(GTK_TREE_VIEW(view));
    const auto select = [&] {
        GtkTreeIter row;
        gboolean more = gtk_tree_model_get_iter_first(model, &row);
        while (more == TRUE && !IsPrinter(model, &row, printer)) {
            more = gtk_tree_model_iter_next(model, &row);
        }
        if (more == TRUE) {
            gtk_tree_selection_select_iter(gtk_tree_view_get_selection(GTK_TREE_VIEW(view)), &row);
        }
        return more == TRUE;
    };
    return TurnUntil(select) && TurnUntil([&] { return chosen() == printer; });
}

GtkWidget* DialogDriver::tab(const std::string& label) const
{
    return FindWidget(dialog_, [&label](GtkWidget* widget) {
        GtkWidget* parent = gtk_widget_get_parent(widget);
        const bool isPage =
            GTK_IS_NOTEBOOK(parent) && gtk_notebook_page_num(GTK_NOTEBOOK(parent), widget) >= 0;
        const char* text =
            isPage ? gtk_notebook_get_tab_label_text(GTK_NOTEBOOK(parent), widget) : nullptr;
        return text != nullptr && text == label;
    });
}

bool DialogDriver::showTab(const std::string& label) const
{
    if (!TurnUntil([&] { return tab(label) != nullptr; })) {
        return false;
    }
    GtkWidget* page = tab(label);
    auto* notebook = GTK_NOTEBOOK(gtk_widget_get_parent(page));
    gtk_notebook_set_current_page(notebook, gtk_notebook_page_num(notebook, page));
    return TurnUntil([page] { return gtk_widget_get_mapped(page) == TRUE; });
}

bool DialogDriver::chooseOption(const std::string& keyword) const
{
    return FindWidget(dialog_, [&keyword](GtkWidget* widget) {
               return GTK_IS_COMBO_BOX(widget) && ChooseKeyword(GTK_COMBO_BOX(widget), keyword);
           }) != nullptr;
}

bool DialogDriver::press(int response)
{
    isAnswered_ = false;
    gtk_dialog_response(GTK_DIALOG(dialog_), response);
    return isAnswered_;
}

bool DialogDriver::print() const
{
    GtkPrintSettings* settings = gtk_print_unix_dialog_get_settings(dialog_);
    GtkPrintJob* job =
        gtk_print_job_new("Page", gtk_print_unix_dialog_get_selected_printer(dialog_), settings,
                          gtk_print_unix_dialog_get_page_setup(dialog_));
    const std::string document = WriteDocument();
    bool isSent = gtk_print_job_set_source_file(job, document.c_str(), nullptr) == TRUE;
    bool isDone = false;
    gtk_print_job_send(
        job, [](GtkPrintJob*, gpointer done, const GError*) { *static_cast<bool*>(done) = true; },
        &isDone, nullptr);
    isSent = isSent && TurnUntil([&isDone] { return isDone; });
    static_cast<void>(unlink(document.c_str()));
    const bool isClean =
        gtk_print_settings_has_key(settings, "cups-com.tarvo.print.Ticket") == FALSE;
    g_object_unref(job);
    g_object_unref(settings);
    return isSent && isClean;
}

} // namespace tarvo
