#include "shell/Shell.h"

#include "panels/PanelEnvironment.h"
#include "panels/toolkit/DialogChecks.h"
#include "panels/toolkit/Dialogs.h"
#include "panels/toolkit/Guarded.h"
#include "panels/toolkit/Help.h"
#include "platform/printing/PPDFile.h"
#include "platform/printing/PrinterAddress.h"
#include "printer/FeatureMap.h"
#include "printer/Maker.h"
#include "settings/TicketAccess.h"
#include "settings/TicketKeys.h"
#include "shell/BundleLookup.h"
#include "shell/SecurePrint.h"
#include "shell/ShellCommands.h"
#include "stocklibrary/PrinterStockThread.h"
#include "tpif/TPIFWriter.h"

#include <gtk/gtk.h>

#include <algorithm>
#include <cstdio>

namespace tarvo {
namespace {

// The panel that was shown last in any dialog: the next one begins by leaving it.
std::int32_t lastTabIndexOfAll = 0;

std::uint64_t lastNumberOfAll = 0;

// The current one last. The list never ends: the toolkit may ask for it until the process has
// ended.
std::vector<Shell*>& LivingShells()
{
    static std::vector<Shell*>* const living = std::make_unique<std::vector<Shell*>>().release();
    return *living;
}

// With what the user, or a program in the user's place, reaches a panel's handlers. Null ends the
// table.
struct SignalRow {
    GType (*type)();
    const char* name;
};

constexpr SignalRow UsersSignals[] = {
    {gtk_widget_get_type,        "event"  },
    {gtk_button_get_type,        "clicked"},
    {gtk_toggle_button_get_type, "toggled"},
    {gtk_combo_box_get_type,     "changed"},
    {nullptr,                    nullptr  },
};

// The dialog in whose pane a widget is, or whose panels have opened the window that it is in; null
// when it is none of theirs.
Shell* ShellOf(GtkWidget* widget)
{
    const auto& living = LivingShells();
    auto found = std::find_if(living.begin(), living.end(),
                              [widget](const Shell* shell) { return shell->contains(widget); });
    GtkWidget* window = gtk_widget_get_toplevel(widget);
    while (found == living.end() && GTK_IS_WINDOW(window)) { // a dialog may have opened another
        window = GTK_WIDGET(gtk_window_get_transient_for(GTK_WINDOW(window)));
        found = std::find_if(living.begin(), living.end(), [window](const Shell* shell) {
            return window != nullptr && shell->isIn(window);
        });
    }
    return found == living.end() ? nullptr : *found;
}

// Comes before the handlers, so that those of a panel find their own dialog among several.
gboolean BeforeHandlers(GSignalInvocationHint* /*hint*/, guint /*count*/, const GValue* values,
                        gpointer /*data*/)
{
    if (LivingShells().size() > 1) {
        auto* widget = GTK_WIDGET(g_value_get_object(values));
        if (Shell* shell = ShellOf(widget)) {
            Guarded([shell] { shell->makeCurrent(); })();
        }
    }
    return TRUE;
}

void WatchUsersSignals()
{
    for (const SignalRow* row = UsersSignals; row->name != nullptr; ++row) {
        g_type_class_ref(row->type()); // the signals are there with the class, which stays
        g_signal_add_emission_hook(g_signal_lookup(row->name, row->type()), 0, BeforeHandlers,
                                   nullptr, nullptr);
    }
}

OSStatus FailInitialize(const std::string& step)
{
    static_cast<void>(std::fprintf(stderr, "Initialize()%s\n", step.c_str()));
    return StatusNullContext;
}

// The whole job is what an export takes, and no booklet is turned round by itself.
void StoreExportOptions(PMTicket& ticket)
{
    ticket.setItem(ExportOptionsClient, ExportOptionsKey, WholeJobExport());
    ticket.removeItem(PanelClient, RotateBookletKey);
}

TarvoStatus ShellEventHandler(const TarvoEvent* event, void* shell)
{
    if (event == nullptr || event->eventClass != TARVO_CONTROL_CLASS ||
        event->kind != TARVO_CONTROL_HIT) {
        return EventNotHandled;
    }
    try {
        return static_cast<Shell*>(shell)->handleControlHit(event->signature, event->control);
    } catch (...) {
        ReportCaughtException();
        return EventNotHandled;
    }
}

} // namespace

Shell::Listed::Listed(Shell& shell) : shell_(shell)
{
    LivingShells().push_back(&shell);
}

// The panels find the dialog before, if there is one, or none.
Shell::Listed::~Listed()
{
    std::erase(LivingShells(), &shell_);
    if (!LivingShells().empty()) {
        LivingShells().back()->publish();
        return;
    }
    const CFBundle* bundle = ThePanelEnvironment().bundle;
    ThePanelEnvironment() = PanelEnvironment();
    ThePanelEnvironment().bundle = bundle;
}

Shell::Shell(const CFBundle* bundle, const PanelGetter* getters)
    : number_(++lastNumberOfAll), bundle_(bundle), lastTabIndex_(lastTabIndexOfAll)
{
    static const bool isWatching = (WatchUsersSignals(), true);
    static_cast<void>(isWatching);
    publish();
    if (bundle_ != nullptr) {
        title_ = bundle_->localizedString("PDE Shell");
        loadPanels(getters);
    }
}

Shell::~Shell()
{
    Guarded([this] { makeCurrent(); })();
    for (const Record& record : records_) {
        Guarded([&] { record.panel->terminate(terminateStatus_); })();
    }
    if (host_ != nullptr) {
        host_->SetEventHandler(host_->self, nullptr, nullptr);
    }
    view_.reset();
    records_.clear();
    g_clear_object(&parentPane_);
}

// What the panels find is this dialog.
void Shell::publish()
{
    PanelEnvironment& environment = ThePanelEnvironment();
    environment.dialog = number_;
    environment.makeCurrent = MakeCurrent;
    environment.bundle = bundle_;
    environment.session = session_;
    environment.sync = [this](SyncDirection direction) { return sync(session_, direction); };
    environment.window = [this] { return window(); };
    environment.printerStockList = printerStockList_;
    environment.takePrinterStocks = [this] { takePrinterStocks(); };
    environment.printerStocksState = [this] { return printerStocksState(); };
    environment.askForPrinterStocks = [this](WindowID window) { askForPrinterStocks(window); };
    if (printer_) {
        printer_->makeCurrent();
    }
}

bool Shell::contains(GtkWidget* widget) const
{
    return parentPane_ != nullptr &&
           gtk_widget_is_ancestor(widget, GTK_WIDGET(parentPane_)) != FALSE;
}

bool Shell::isIn(GtkWidget* window) const
{
    return parentPane_ != nullptr &&
           gtk_widget_is_ancestor(GTK_WIDGET(parentPane_), window) != FALSE;
}

void Shell::makeCurrent()
{
    if (LivingShells().back() != this) {
        std::erase(LivingShells(), this);
        LivingShells().push_back(this);
        publish();
    }
}

bool Shell::MakeCurrent(std::uint64_t number)
{
    const auto& living = LivingShells();
    const auto found = std::find_if(living.begin(), living.end(), [number](const Shell* shell) {
        return shell->number_ == number;
    });
    if (found == living.end()) {
        return false;
    }
    (*found)->makeCurrent();
    return true;
}

Gtk::Window* Shell::window() const
{
    GtkWidget* top =
        parentPane_ == nullptr ? nullptr : gtk_widget_get_toplevel(GTK_WIDGET(parentPane_));
    return GTK_IS_WINDOW(top) ? Glib::wrap(GTK_WINDOW(top)) : nullptr;
}

// A panel that cannot be had leaves out those behind it, too.
void Shell::loadPanels(const PanelGetter* getters)
{
    PanelDescription description; // a panel may leave it as the one before has said
    for (; *getters != nullptr; ++getters) {
        auto panel = (*getters)();
        if (!panel || panel->prologue(description) != StatusOk) {
            return;
        }
        Record record;
        record.panel = std::move(panel);
        record.title = description.title;
        record.kind = description.kind;
        record.tabIndex = static_cast<std::int32_t>(records_.size()) + 1;
        records_.push_back(std::move(record));
    }
}

OSStatus Shell::initialize(const TarvoPDEHost* host, GtkContainer* parentPane,
                           PMPrintSession* session)
{
    if (session == nullptr) {
        return StatusNullContext;
    }
    makeCurrent();
    PMTicket* information = nullptr;
    if (GetTicketFromSession(session, PrinterInfoTicketName, &information) != StatusOk) {
        return FailInitialize("::GetTicketFromSession() failed.");
    }
    if (const OSStatus status = describePrinter(information); status != StatusOk) {
        return status;
    }
    std::string failedStep = "CreateNibReferenceWithCFBundle";
    auto view = bundle_ == nullptr ? nullptr : ShellView::Load(*bundle_, failedStep);
    if (!view) {
        printer_.reset();
        return FailInitialize("::" + failedStep + "() failed.");
    }
    view_ = std::move(view);
    session_ = session;
    if (parentPane != nullptr) {
        g_object_ref_sink(parentPane);
    }
    g_clear_object(&parentPane_); // of an Initialize before
    parentPane_ = parentPane;
    publish();
    RegisterMyHelpBook(bundle_); // help that is missing is told of when it is asked for
    if (host != nullptr && host->SetEventHandler != nullptr) {
        host_ = host;
        host_->SetEventHandler(host_->self, ShellEventHandler, this);
    }
    initializePanels();
    return sync(session_, SyncDirection::FromTicket);
}

OSStatus Shell::describePrinter(const PMTicket* information)
{
    ParseError error; // unread: the message is always the same
    auto ppd = ppdOpenCompiledPPDFromTicket(information, error);
    if (!ppd) {
        return FailInitialize("::ppdOpenCompiledPPDFromTicket() failed.");
    }
    if (ppd->manufacturer() != FamilyMaker) {
        return FailInitialize(" not a Tarvo PDE.");
    }
    if (bundle_ != nullptr) {
        printer_ = std::make_unique<PrinterDescription>(std::move(ppd), information,
                                                        InstalledFeatures, *bundle_);
    }
    return StatusOk;
}

void Shell::initializePanels()
{
    for (Record& record : records_) {
        record.pane = std::make_unique<Gtk::Box>(Gtk::ORIENTATION_VERTICAL);
        record.pane->set_name("TSgb" + std::to_string(record.tabIndex));
        record.pane->set_no_show_all(true); // the dialog shows all of its tab
        record.panel->initialize(*record.pane, session_);
    }
}

OSStatus Shell::sync(PMPrintSession* session, SyncDirection direction)
{
    if (session == nullptr) {
        return StatusNoSession;
    }
    makeCurrent();
    Panel* last = nullptr;
    for (const Record& record : records_) {
        if (record.tabIndex == lastTabIndex_) {
            last = record.panel.get();
        } else {
            record.panel->sync(session, direction);
        }
    }
    if (last != nullptr) {
        last->sync(session, direction);
    }
    PMTicket* ticket = nullptr;
    GetTicketFromSession(session, JobTicketName, &ticket);
    if (direction == SyncDirection::ToTicket && ticket != nullptr) {
        StoreExportOptions(*ticket);
    }
    return StatusOk;
}

// Each panel clears what the one before has filled: the texts of two are not put together.
PanelSummary Shell::getSummaryText()
{
    makeCurrent();
    PanelSummary summary;
    for (const Record& record : records_) {
        record.panel->getSummaryText(summary);
    }
    return summary;
}

OSStatus Shell::open()
{
    if (!view_) {
        return StatusNullContext; // it was never initialized
    }
    makeCurrent();
    windowEvents_.emplace([this](const Event& event) { return handleWindowEvent(event); });
    if (!isOpened_) {
        isOpened_ = true;
        startWorker();
        buildView();
    }
    if (currentPanelNumber_ == 0) {
        currentPanelNumber_ = 1;
    }
    selectPanel(currentPanelNumber_);
    view_->setPopupValue(currentPanelNumber_);
    return StatusOk;
}

// The authority of the printer's device URI; nullopt for a printer that cannot be asked.
std::optional<std::string> Shell::host() const
{
    auto host = session_ != nullptr && session_->currentPrinter
                    ? AuthorityOfDeviceURI(session_->currentPrinter->deviceUri)
                    : std::nullopt;
    return host && !host->empty() ? host : std::nullopt;
}

void Shell::startWorker()
{
    if (const auto printer = host()) {
        static_cast<void>(MySpawnThread(BundleIdentifier, *printer, windowEvents_->window()));
    }
}

bool Shell::hasWorker() const
{
    return windowEvents_ && HasPrinterStockThread(windowEvents_->window());
}

// Of several dialogs the newest has the worker, until it closes. The others keep what they have and
// may ask again.
PrinterStocksState Shell::printerStocksState() const
{
    if (hasWorker()) {
        return {CurrentPrinterStockStatus(), PrinterStocksCause()};
    }
    if (!host()) {
        return {};
    }
    return {printerStockList_ ? PrinterStockStatus::Complete : PrinterStockStatus::Failed, ""};
}

void Shell::askForPrinterStocks(WindowID window)
{
    if (windowEvents_ && !hasWorker()) {
        startWorker();
    }
    if (hasWorker()) {
        RetrievePrinterStocksFor(window);
    }
}

void Shell::buildView()
{
    if (parentPane_ != nullptr) {
        view_->embed(parentPane_);
    }
    Menu panels;
    for (const Record& record : records_) {
        view_->panelContainer().add(*record.pane);
        MenuItem item;
        item.text = record.title;
        item.value = record.tabIndex;
        panels.push_back(std::move(item));
    }
    view_->connect(panels,
                   {[this](std::int32_t control) { handleControlHit(ShellSignature, control); },
                    [this](std::uint32_t command) { handleCommand(command); }});
}

// A panel's controls are made when it is first seen: making those of all would be felt when the
// dialog opens.
void Shell::openPanel(Record& record) const
{
    if (!record.isOpen) {
        record.isOpen = true;
        record.panel->open();
    }
    view_->assignMnemonics(*record.pane); // labels may have changed since it was last seen
}

void Shell::selectPanel(std::int32_t index)
{
    for (const Record& record : records_) {
        if (record.tabIndex == lastTabIndex_) { // the one that is left
            record.panel->sync(session_, SyncDirection::ToTicket);
        }
    }
    view_->setSwitchGroupVisible(false);
    for (Record& record : records_) {
        if (record.tabIndex != lastTabIndex_) { // what the others changed shows
            record.panel->sync(session_, SyncDirection::FromTicket);
        }
        const bool isSelected = record.tabIndex == index;
        if (isSelected) {
            openPanel(record);
            currentPanelNumber_ = index;
        }
        record.pane->set_sensitive(isSelected);
        record.pane->set_visible(isSelected);
    }
    lastTabIndex_ = index;
    lastTabIndexOfAll = index;
    view_->setSwitchGroupVisible(true);
}

void Shell::showPanel(std::int32_t index)
{
    selectPanel(index);
    view_->setPopupValue(index);
}

// Goes round from the last panel to the first and back.
void Shell::step(std::int32_t difference)
{
    const auto count = static_cast<std::int32_t>(records_.size());
    if (count > 0 && view_ && isOpened_) {
        showPanel((lastTabIndex_ - 1 + difference + count) % count + 1);
    }
}

OSStatus Shell::close()
{
    makeCurrent();
    for (Record& record : records_) {
        if (record.isOpen) {
            record.isOpen = false;
            record.panel->close();
        }
    }
    if (windowEvents_) {
        MyRemoveThread(windowEvents_->window()); // nothing when there is none
        windowEvents_.reset();
    }
    return StatusOk;
}

OSStatus Shell::handleControlHit(std::uint32_t signature, std::int32_t control)
{
    makeCurrent();
    if (signature == 0 && control == TARVO_DEFAULT_BUTTON) {
        return blockJobWithoutPasscode() == StatusOk || !confirmConflicts() ? StatusOk
                                                                            : EventNotHandled;
    }
    if (signature != ShellSignature || !view_ || !isOpened_) {
        return EventNotHandled;
    }
    switch (control) {
    case PanelPopupControl: {
        const std::int32_t chosen = view_->popupValue(lastTabIndex_);
        if (chosen == lastTabIndex_) {
            return EventNotHandled;
        }
        selectPanel(chosen);
        return StatusOk;
    }
    case NextPanelControl:
        step(1);
        return StatusOk;
    case PreviousPanelControl:
        step(-1);
        return StatusOk;
    case HelpControl:
        return handleCommand(HelpCommand);
    default:
        return EventNotHandled;
    }
}

OSStatus Shell::handleCommand(std::uint32_t command)
{
    makeCurrent();
    switch (command) {
    case HelpCommand:
        DisplayHelp(bundle_, window(), nullptr, nullptr);
        break;
    case NextPanelCommand:
        step(1);
        break;
    case PreviousPanelCommand:
        step(-1);
        break;
    default:
        break;
    }
    return EventNotHandled;
}

OSStatus Shell::blockJobWithoutPasscode() const
{
    const bool isBlocked = std::any_of(records_.begin(), records_.end(), [](const Record& record) {
        return LacksPasscode(record.panel->jobType());
    });
    if (!isBlocked || bundle_ == nullptr) {
        return EventNotHandled;
    }
    DisplayNotice(*bundle_, window(), "Invalid Secure Print Passcode Header",
                  "Invalid Secure Print Passcode Message");
    return StatusOk;
}

// Asks whether to print all the same.
bool Shell::confirmConflicts() const
{
    std::string conflicts;
    for (const Record& record : records_) {
        for (const std::string& conflict : record.panel->conflicts()) {
            conflicts += (conflicts.empty() ? "" : "\n\n") + conflict;
        }
    }
    return conflicts.empty() || bundle_ == nullptr ||
           AskUser(*bundle_, window(), bundle_->localizedString("Print With Conflicts Header"),
                   "Print Anyway", "Cancel Command", conflicts);
}

// The worker has an answer of the printer.
OSStatus Shell::handleWindowEvent(const Event& event)
{
    if (event.eventClass != PrinterStockEventClass || event.kind != RetrievalFinishedEvent) {
        return EventNotHandled;
    }
    takePrinterStocks();
    return StatusOk;
}

void Shell::takePrinterStocks()
{
    const auto stocks = PrinterStockHost() == host() ? PrinterStockList() : nullptr;
    if (CurrentPrinterStockStatus() == PrinterStockStatus::Complete && stocks) {
        printerStockList_ = stocks;
        LivingShells().back()->publish();
    }
}

} // namespace tarvo
