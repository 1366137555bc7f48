#include "host/DialogSession.h"

#include "host/DialogSettings.h"
#include "host/Guarded.h"

#include <gtk/gtk.h>
#include <gtk/gtkunixprint.h>

namespace tarvo {
namespace {

// Loaded with the first of our printers; a plug-in that cannot be loaded is told of once.
TarvoPlugInFactory Factory()
{
    static const TarvoPlugInFactory factory = [] {
        std::string reason = "there is no TarvoFeatures.plugin";
        const std::string bundle = BundleOfThisModule();
        const TarvoPlugInFactory found = bundle.empty() ? nullptr : LoadPlugIn(bundle, reason);
        if (found == nullptr) {
            static_cast<void>(std::fprintf(
                stderr, "tarvo-printhost: the plug-in is not loaded: %s\n", reason.c_str()));
        }
        return found;
    }();
    return factory;
}

TarvoPrintSession* AsInterface(PMPrintSession& session)
{
    return reinterpret_cast<TarvoPrintSession*>(&session);
}

template <typename Type>
struct ObjectDeleter {
    void operator()(Type* object) const { g_object_unref(object); }
};

// A pane as large as the plug-in wants, which scrolls where the dialog gives it less.
GtkWidget* NewTab(GtkWidget* pane, std::int32_t maximumWidth, std::int32_t maximumHeight)
{
    GtkWidget* tab = gtk_scrolled_window_new(nullptr, nullptr);
    auto* window = GTK_SCROLLED_WINDOW(tab);
    gtk_scrolled_window_set_propagate_natural_width(window, TRUE);
    gtk_scrolled_window_set_propagate_natural_height(window, TRUE);
    gtk_scrolled_window_set_max_content_width(window, maximumWidth);
    gtk_scrolled_window_set_max_content_height(window, maximumHeight);
    gtk_container_add(GTK_CONTAINER(tab), pane);
    gtk_widget_show_all(tab);
    return tab;
}

} // namespace

std::unique_ptr<DialogSession> DialogSession::Begin(GtkPrintUnixDialog* dialog,
                                                    const PrinterFacts& facts)
{
    auto plugIn = PlugIn::Make(Factory());
    if (!plugIn) {
        return nullptr;
    }
    std::unique_ptr<DialogSession> session(new DialogSession(dialog, facts, std::move(plugIn)));
    return session->start() ? std::move(session) : nullptr;
}

DialogSession::DialogSession(GtkPrintUnixDialog* dialog, const PrinterFacts& facts,
                             std::unique_ptr<PlugIn> plugIn)
    : dialog_(dialog), description_(facts.description), plugIn_(std::move(plugIn))
{
    const std::string path = description_->path();
    session_.addTicket(JobTicketName);
    PMTicket& information = session_.addTicket(PrinterInfoTicketName);
    information.setItem(PanelClient, PPDPathKey, path);
    information.setItem(PanelClient, MakeAndModelKey, facts.makeAndModel);
    session_.currentPrinter = PMPrinter{facts.deviceUri, path, facts.makeAndModel};
    takeDialogSettings();
    host_.self = this;
    host_.SetEventHandler = [](void* self, TarvoEventHandler handler, void* userData) {
        static_cast<DialogSession*>(self)->handler_ = handler;
        static_cast<DialogSession*>(self)->handlerData_ = userData;
    };
}

DialogSession::~DialogSession()
{
    if (isOpen_) {
        plugIn_->operations().Close(context_);
    }
    removeTab();
    if (context_ != nullptr) {
        plugIn_->operations().Terminate(context_, 0);
    }
}

// The tab's pane exists before the tab is seen, since Initialize wants it.
bool DialogSession::start()
{
    std::uint32_t creator = 0;
    const char* kind = nullptr;
    const char* title = nullptr;
    std::int32_t maximumWidth = TARVO_PANE_WIDTH;
    std::int32_t maximumHeight = TARVO_PANE_HEIGHT;
    const TarvoPDETable& operations = plugIn_->operations();
    const TarvoStatus prologue =
        operations.Prologue(&context_, &creator, &kind, &title, &maximumWidth, &maximumHeight);
    if (prologue != 0 || context_ == nullptr) {
        return false;
    }
    GtkWidget* pane = gtk_box_new(GTK_ORIENTATION_VERTICAL, 0);
    tab_ = NewTab(pane, maximumWidth, maximumHeight);
    g_object_ref_sink(tab_);
    if (operations.Initialize(context_, 0, &host_, GTK_CONTAINER(pane), AsInterface(session_)) !=
        0) {
        return false;
    }
    addTab(title);
    return true;
}

void DialogSession::addTab(const char* title)
{
    g_signal_connect(tab_, "map", G_CALLBACK(+[](GtkWidget*, gpointer self) {
                         Guarded([self] { static_cast<DialogSession*>(self)->open(); });
                     }),
                     this);
    gtk_print_unix_dialog_add_custom_tab(dialog_, tab_,
                                         gtk_label_new(title == nullptr ? "Tarvo" : title));
}

// The dialog has no call for it, but its pages are those of a notebook.
void DialogSession::removeTab()
{
    if (tab_ == nullptr) {
        return;
    }
    g_signal_handlers_disconnect_by_data(tab_, this);
    if (GtkWidget* parent = gtk_widget_get_parent(tab_); GTK_IS_NOTEBOOK(parent)) {
        auto* notebook = GTK_NOTEBOOK(parent);
        gtk_notebook_remove_page(notebook, gtk_notebook_page_num(notebook, tab_));
    }
    gtk_widget_destroy(tab_);
    g_object_unref(tab_);
    tab_ = nullptr;
}

// The tab comes to the front, perhaps after choices in the dialog's own tabs: those are later than
// the plug-in's, and it shows them.
void DialogSession::open()
{
    if (isOpen_) {
        fillTicket();
        plugIn_->operations().Sync(context_, AsInterface(session_), true);
        return;
    }
    takeDialogSettings();
    isOpen_ = true;
    plugIn_->operations().Open(context_);
}

// Whether what is chosen can be printed depends on the dialog's own tabs, too.
bool DialogSession::allowsButton(std::int32_t control)
{
    if (control == TARVO_DEFAULT_BUTTON) {
        takeDialogSettings();
    }
    if (handler_ == nullptr) {
        return true;
    }
    const TarvoEvent event = {TARVO_CONTROL_CLASS, TARVO_CONTROL_HIT, 0, control};
    return handler_(&event, handlerData_) == TARVO_EVENT_NOT_HANDLED;
}

void DialogSession::takeDialogSettings()
{
    if (GtkPageSetup* setup = gtk_print_unix_dialog_get_page_setup(dialog_); setup != nullptr) {
        session_.pageFormat = PageFormatOf(setup);
    }
    const std::unique_ptr<GtkPrintSettings, ObjectDeleter<GtkPrintSettings>> settings(
        gtk_print_unix_dialog_get_settings(dialog_));
    CFDictionary choices = ChoicesOf(settings.get(), *description_->ppd);
    TakeChanges(dialogChoices_, choices, session_.ticket(JobTicketName)->ppdDictionary());
    dialogChoices_ = std::move(choices);
}

const PMTicket& DialogSession::fillTicket()
{
    takeDialogSettings();
    plugIn_->operations().Sync(context_, AsInterface(session_), false);
    return *session_.ticket(JobTicketName);
}

} // namespace tarvo
