#pragma once

#include "panels/Panel.h"
#include "panels/PanelEnvironment.h"
#include "platform/events/WindowEvents.h"
#include "printer/PrinterDescription.h"
#include "shell/PlugInInterface.h"
#include "shell/ShellView.h"

#include <gtkmm/box.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarvo {

class StockLibraryList;

/// The print features in one print dialog: a pane that shows one panel at a time. Operations of the
/// dialog are passed to every panel in turn; what the panels return counts for nothing.
class Shell {
public:
    /// Loads the panels; none without a bundle.
    /// @param bundle  may be null; outlives this
    /// @param getters  as PanelMap
    Shell(const CFBundle* bundle, const PanelGetter* getters);
    Shell(const Shell&) = delete;
    Shell& operator=(const Shell&) = delete;
    /// Ends every panel and takes the pane out of the dialog.
    ~Shell();

    /// @return the pane's title; null without a bundle
    const std::string* title() const { return title_ ? &*title_ : nullptr; }

    /// Checks that the printer is ours and reads the session's ticket.
    /// @return StatusNullContext, with nothing kept, when a step fails; standard error tells which
    OSStatus initialize(const TarvoPDEHost* host, GtkContainer* parentPane,
                        PMPrintSession* session);
    /// The panel that is shown comes last, so that its view of the ticket wins.
    /// @return StatusNoSession without a session
    OSStatus sync(PMPrintSession* session, SyncDirection direction);
    /// Gives what the last panel gives.
    PanelSummary getSummaryText();
    OSStatus open();
    OSStatus close();
    void terminate(OSStatus status) { terminateStatus_ = status; }

    /// Something has happened to a control of the pane or to a button of the dialog.
    /// @return EventNotHandled to let it go on, StatusOk to swallow it
    OSStatus handleControlHit(std::uint32_t signature, std::int32_t control);
    /// @return EventNotHandled: a command goes on, too
    OSStatus handleCommand(std::uint32_t command);

    /// Whether a widget is in the dialog's pane.
    bool contains(GtkWidget* widget) const;
    /// Whether the dialog's pane is in a window.
    bool isIn(GtkWidget* window) const;
    /// Lets the panels find this dialog, be there newer ones or not.
    void makeCurrent();
    /// The same for the dialog of a number that PanelEnvironment has told.
    /// @return false when it has ended
    static bool MakeCurrent(std::uint64_t number);

private:
    struct Record {
        std::unique_ptr<Gtk::Box> pane; // outlives the panel
        std::unique_ptr<Panel> panel;
        std::string title;
        std::string kind;
        std::int32_t tabIndex = 0; // from 1
        bool isOpen = false;
    };

    void loadPanels(const PanelGetter* getters);
    OSStatus describePrinter(const PMTicket* information);
    void initializePanels();

    void buildView();
    std::optional<std::string> host() const;
    void startWorker();
    void openPanel(Record& record) const;
    void selectPanel(std::int32_t index);
    void showPanel(std::int32_t index);
    void step(std::int32_t difference);
    OSStatus blockJobWithoutPasscode() const;
    bool confirmConflicts() const;
    OSStatus handleWindowEvent(const Event& event);
    void takePrinterStocks();
    bool hasWorker() const;
    PrinterStocksState printerStocksState() const;
    void askForPrinterStocks(WindowID window);
    Gtk::Window* window() const;
    void publish();

    /// A place in the list of those that live: the last to go, also when the constructor fails.
    class Listed {
    public:
        explicit Listed(Shell& shell);
        Listed(const Listed&) = delete;
        Listed& operator=(const Listed&) = delete;
        ~Listed();

    private:
        Shell& shell_;
    };

    const Listed listed_{*this};
    const std::uint64_t number_; // of no other dialog before or after
    const CFBundle* bundle_;
    std::optional<std::string> title_;
    PMPrintSession* session_ = nullptr;
    const TarvoPDEHost* host_ = nullptr;
    std::int32_t lastTabIndex_;           // of the panel that is left next
    std::int32_t currentPanelNumber_ = 0; // 0: none has been shown
    GtkContainer* parentPane_ = nullptr;  // owned
    std::unique_ptr<PrinterDescription> printer_;
    std::shared_ptr<StockLibraryList> printerStockList_; // what the printer has reported last
    std::vector<Record> records_;
    std::unique_ptr<ShellView> view_;
    std::optional<WindowEventHandler> windowEvents_; // while it is open
    bool isOpened_ = false;                          // once at least
    OSStatus terminateStatus_ = StatusOk;
};

} // namespace tarvo
