#include "panels/stock/StockLibraryDialog.h"

#include "panels/PanelEnvironment.h"
#include "panels/stock/AdvancedStockDialog.h"
#include "panels/stock/StockLibraryColumnsDialog.h"
#include "panels/stock/StockListColumns.h"
#include "panels/stock/StockListModel.h"
#include "panels/toolkit/BackgroundWork.h"
#include "panels/toolkit/DialogChecks.h"
#include "panels/toolkit/Dialogs.h"
#include "panels/toolkit/Guarded.h"
#include "panels/toolkit/Nib.h"
#include "panels/toolkit/PopupButton.h"
#include "platform/bundle/CFBundle.h"
#include "platform/text/CaseFolding.h"
#include "platform/text/TextFormat.h"
#include "prefs/PreferenceTasks.h"
#include "records/TicketSpecialPages.h"
#include "settings/SettingMenu.h"
#include "settings/StockMaps.h"
#include "settings/TicketAccess.h"
#include "settings/TicketKeys.h"
#include "stocklibrary/PrinterStockThread.h"
#include "stocklibrary/RecentPapers.h"
#include "stocklibrary/StockColumnTexts.h"
#include "stocklibrary/StockLibraryReader.h"
#include "stocklibrary/UserPapers.h"

#include <gtk/gtk.h>
#include <gtkmm/button.h>
#include <gtkmm/label.h>
#include <gtkmm/treeview.h>

#include <algorithm>
#include <utility>

namespace tarvo {
namespace {

constexpr std::int32_t MyPaper = 1;

// What the dialog shows besides the user's own papers: what of the job is on which paper.
struct JobStocks {
    Stock stock;
    TicketSpecialPages pages;
};

JobStocks StocksOfJob(JobContext context, const Stock& chosen)
{
    JobStocks stocks;
    PMTicket* ticket = nullptr;
    GetTicketFromSession(GetCurrentPrintSession(), JobTicketName, &ticket);
    if (ticket != nullptr) {
        stocks.pages = ReadSpecialPages(*ticket);
        const auto* item = ticket->item(std::string(JobLevelStockKey));
        const auto* own = item == nullptr ? nullptr : item->value.get<CFDictionary>();
        stocks.stock.takeAsItIs(own == nullptr ? Stock() : Stock(*own));
    }
    if (context == JobContext::Job) {
        stocks.stock.takeAsItIs(chosen);
    }
    return stocks;
}

// The printer's papers; they are in memory only and of the main thread.
std::shared_ptr<const CFDictionary> PapersOfPrinter()
{
    const auto list = ThePanelEnvironment().printerStockList;
    return {list, list ? &list->stockList() : nullptr};
}

// While no list of them is shown: the marks may move its entries.
void MarkPapersOfPrinter(const JobStocks& job)
{
    if (const auto list = ThePanelEnvironment().printerStockList) {
        MarkStocksInUse(*list, job.stock, job.pages);
    }
}

// Without a shell it is what the worker says.
PrinterStocksState StateOfPrinter()
{
    const auto state = ThePanelEnvironment().printerStocksState;
    return state ? state() : PrinterStocksState{CurrentPrinterStockStatus(), PrinterStocksCause()};
}

const char* StatusKey(PrinterStockStatus status)
{
    switch (status) {
    case PrinterStockStatus::Failed:
        return "PrinterLibraryFailed";
    case PrinterStockStatus::InProgress:
        return "PrinterLibraryRetrieving";
    case PrinterStockStatus::NoThread:
        return "PrinterLibraryUnavailable";
    default:
        return nullptr;
    }
}

struct Buttons {
    Glib::RefPtr<Gtk::Button> add;
    Glib::RefPtr<Gtk::Button> edit;
    Glib::RefPtr<Gtk::Button> remove;
    Glib::RefPtr<Gtk::Button> copy;
    Glib::RefPtr<Gtk::Button> refresh;
    Glib::RefPtr<Gtk::Button> columns;
};

// The dialog while it is shown.
class StockLibraryWindow {
public:
    StockLibraryWindow(const CFBundle& bundle, Nib& nib, JobContext context, const Stock& stock,
                       std::shared_ptr<const JobStocks> job, std::shared_ptr<UserPapers> papers,
                       const StockLibraryView& view)
        : bundle_(bundle),
          context_(context),
          stock_(stock),
          job_(std::move(job)),
          papers_(std::move(papers)),
          mine_(papers_->papers()),
          state_(papers_->state()),
          view_(view),
          dialog_(nib.window<Gtk::Dialog>("StockLibrary")),
          source_(nib.widget<Gtk::ComboBox>("TPDE1")),
          list_(nib.widget<Gtk::TreeView>("TPDE2")),
          buttons_{nib.widget<Gtk::Button>("TPDE3"), nib.widget<Gtk::Button>("TPDE4"),
                   nib.widget<Gtk::Button>("TPDE5"), nib.widget<Gtk::Button>("TPDE6"),
                   nib.widget<Gtk::Button>("TPDE7"), nib.widget<Gtk::Button>("TPDE8")},
          status_(nib.widget<Gtk::Label>("TPDE9")),
          events_([this](const Event& event) { return handleEvent(event); })
    {
        MarkPapersOfPrinter(*job_);
        hadPaper_ = isOfALibrary(stock);
    }
    StockLibraryWindow(const StockLibraryWindow&) = delete;
    StockLibraryWindow& operator=(const StockLibraryWindow&) = delete;
    // The shell hears of an answer that comes after this; what the library still has to save comes
    // after what the user has changed last.
    ~StockLibraryWindow()
    {
        if (CurrentPrinterStockStatus() == PrinterStockStatus::InProgress) {
            SendMessageToThread(PollStatusMessage, "");
        }
        StartPreferenceChange([papers = std::move(papers_)] { static_cast<void>(papers); });
    }

    std::int32_t run(Gtk::Window* parent)
    {
        MakeStockColumns(bundle_, *list_.get(), view_);
        Menu sources;
        PopulateMenuFromMap(bundle_, sources, NamedPaperPaperListMap, context_);
        sources.front().isChecked = true;
        PopulatePopupButton(*source_.get(), sources);
        connect();
        showPapers(view_.selectedRow);
        if (StateOfPrinter().status == PrinterStockStatus::InProgress) {
            SendMessageToThread(PollStatusMessage, WindowData(events_.window()));
        }
        list_->grab_focus();
        AcceptOnlyIf(*dialog_.get(), [this] { return accept(); });
        const std::int32_t result = RunModalWindow(bundle_, *dialog_.get(), parent);
        list_->unset_model(); // what the list still has to do for its rows must not outlive this
        return result;
    }

    const Stock& stock() const { return stock_; }
    /// Whether a library had the stock when this was opened and none has it now.
    bool hasLost(const Stock& stock) const { return hadPaper_ && !isOfALibrary(stock); }

private:
    // A stock without a custom name came from no library.
    bool isOfALibrary(const Stock& stock) const
    {
        const auto printers = ThePanelEnvironment().printerStockList;
        return !stock.customName().empty() &&
               (HasPaper(*mine_, stock) ||
                (printers != nullptr && printers->findMatch(stock) != nullptr));
    }

    bool showsMine() const { return GetPopupButtonTicketValue(*source_.get(), MyPaper) == MyPaper; }

    void connect()
    {
        const auto on = [](const Glib::RefPtr<Gtk::Button>& button, auto&& function) {
            button->signal_clicked().connect(Guarded(std::forward<decltype(function)>(function)));
        };
        on(buttons_.add, [this] { add(); });
        on(buttons_.edit, [this] { edit(); });
        on(buttons_.remove, [this] { remove(); });
        on(buttons_.copy, [this] { copy(); });
        on(buttons_.refresh, [this] { refresh(); });
        on(buttons_.columns, [this] { chooseColumns(); });
        source_->signal_changed().connect(Guarded([this] { showPapers(""); }));
        list_->get_selection()->signal_changed().connect(Guarded([this] { showState(); }));
        list_->signal_row_activated().connect(
            Guarded([this](const Gtk::TreeModel::Path&, Gtk::TreeViewColumn*) {
                if (const auto chosen = selected(); chosen && !chosen->isInvalid()) {
                    dialog_->response(Gtk::RESPONSE_OK);
                }
            }));
    }

    // Shows the chosen library as it is now.
    void showPapers(const std::string& uuid)
    {
        model_ = StockListModel::Create(bundle_, showsMine() ? mine_ : PapersOfPrinter());
        list_->set_model(model_);
        list_->set_search_column(0); // a new model forgets it
        const auto row = uuid.empty() ? std::nullopt : model_->rowOf(uuid);
        if (row) {
            Gtk::TreeModel::Path path;
            path.push_back(static_cast<int>(*row));
            list_->set_cursor(path);
            list_->scroll_to_row(path);
        }
        showState();
    }

    std::optional<std::size_t> selectedRow() const
    {
        const auto row = list_->get_selection()->get_selected();
        return row ? std::optional(static_cast<std::size_t>(model_->get_path(row)[0]))
                   : std::nullopt;
    }
    std::optional<StockLibrary> selected() const
    {
        const auto row = selectedRow();
        return row ? std::optional(model_->paper(*row)) : std::nullopt;
    }
    std::string selectedUuid() const
    {
        const auto row = selectedRow();
        return row ? model_->uuid(*row) : "";
    }

    void showState()
    {
        const auto paper = selected();
        const bool isMine = showsMine();
        const PrinterStockStatus status = StateOfPrinter().status;
        const bool canAsk =
            status == PrinterStockStatus::Complete || status == PrinterStockStatus::Failed;
        buttons_.add->set_sensitive(isMine);
        buttons_.edit->set_sensitive(isMine && paper);
        buttons_.remove->set_sensitive(isMine && paper);
        buttons_.copy->set_sensitive(!isMine && paper);
        buttons_.refresh->set_sensitive(!isMine && canAsk);
        dialog_->set_response_sensitive(Gtk::RESPONSE_OK, paper && !paper->isInvalid());
        status_->set_text(isMine ? ownStatus(paper) : printerStatus(paper));
    }

    // What is wrong with the user's file; "" for nothing.
    std::string fileStatus() const
    {
        if (!state_.areSaved) {
            return bundle_.localizedString("StockLibraryNotSaved");
        }
        if (!state_.unreadReason.empty()) {
            return FilledFormat(bundle_.localizedString("StockLibraryUnreadable"),
                                state_.unreadReason);
        }
        return state_.keptAs.empty()
                   ? ""
                   : FilledFormat(bundle_.localizedString("StockLibraryKept"), state_.keptAs);
    }

    std::string ownStatus(const std::optional<StockLibrary>& paper) const
    {
        if (std::string text = fileStatus(); !text.empty()) {
            return text;
        }
        if (model_->size() == 0) {
            return bundle_.localizedString("StockLibraryEmpty");
        }
        if (!paper) {
            return "";
        }
        const bool isInUse = paper->status() == static_cast<std::int32_t>(StockEntryStatus::InUse);
        return paper->isInvalid() ? bundle_.localizedString("StockLibraryNotOffered")
               : isInUse          ? bundle_.localizedString("StockLibraryInUse")
                                  : "";
    }

    std::string printerStatus(const std::optional<StockLibrary>& paper) const
    {
        const PrinterStocksState state = StateOfPrinter();
        if (const char* key = StatusKey(state.status)) {
            return bundle_.localizedString(key);
        }
        if (paper && paper->isInvalid()) {
            return bundle_.localizedString("PrinterPaperNotOffered");
        }
        if (!state.cause.empty()) { // a former list stays, but is not the newest
            return FilledFormat(bundle_.localizedString("PrinterLibraryNotRead"), state.cause);
        }
        return model_->size() == 0 ? bundle_.localizedString("PrinterLibraryEmpty") : "";
    }

    // Works on the library in a task, then shows it. The application may end the dialog meanwhile.
    // @param work  gives the uuid of the row to select
    void change(const std::function<std::string(UserPapers&)>& work)
    {
        const auto uuid = std::make_shared<std::string>();
        const bool isDone = RunInBackground(
            dialog_.get(), [papers = papers_, work, uuid] { *uuid = work(*papers); });
        if (!isDone || !dialog_->get_mapped()) {
            return;
        }
        mine_ = papers_->papers();
        state_ = papers_->state();
        showPapers(*uuid);
        if (Gtk::Widget* focus = dialog_->get_focus(); focus == nullptr || !focus->is_sensitive()) {
            list_->grab_focus(); // the button that was pressed has nothing left to do
        }
    }

    std::optional<std::pair<Stock, bool>> askPaper(DialogMode mode, Stock stock)
    {
        NamedPaperRequest request;
        request.mode = mode;
        request.context = context_;
        const std::string former = mode == DialogMode::Edit ? stock.customName() : "";
        request.isTaken = [this, former](const std::string& name) {
            return (former.empty() || !EqualIgnoringCase(name, former)) && papers_->hasName(name);
        };
        std::int32_t result = DialogCancel;
        bool replaces = false;
        RunModalNamedPaperStockSelection(bundle_, dialog_.get(), request, stock, result, replaces);
        if (result != DialogOk || !dialog_->get_mapped()) {
            return std::nullopt;
        }
        return std::pair(stock, replaces);
    }

    void add()
    {
        Stock stock(stock_); // what the user has chosen so far is the likeliest beginning
        stock.setCustomName("");
        stock.setCustomNameOnly(false);
        const auto entered = askPaper(DialogMode::Add, stock);
        if (!entered) {
            return;
        }
        change([stock = entered->first, replaces = entered->second](UserPapers& papers) {
            return replaces ? papers.replace(stock, "") : papers.add(stock);
        });
    }

    void edit()
    {
        const auto paper = selected();
        const std::string uuid = selectedUuid();
        if (!paper) {
            return;
        }
        const auto entered = askPaper(DialogMode::Edit, paper->stock());
        if (!entered) {
            return;
        }
        change([stock = entered->first, replaces = entered->second, uuid](UserPapers& papers) {
            return replaces ? papers.replace(stock, uuid) : papers.edit(uuid, stock);
        });
    }

    void remove()
    {
        const auto paper = selected();
        const std::string uuid = selectedUuid();
        if (!paper) {
            return;
        }
        const std::string question = FilledFormat(bundle_.localizedString("DeletePaperMessage"),
                                                  StockColumnText(bundle_, *paper, 0));
        if (AskUser(bundle_, dialog_.get(), question, "Yes Command", "No Command") &&
            dialog_->get_mapped()) {
            change([uuid](UserPapers& papers) {
                papers.remove(uuid);
                return std::string();
            });
        }
    }

    // A printer's paper as one of the user's, which needs a name that is not too long.
    std::optional<std::pair<Stock, bool>> askCopy(Stock stock)
    {
        EnterPaperName(stock, stock.customName());
        if (stock.customName().empty()) {
            return askPaper(DialogMode::Add, stock);
        }
        const std::string& name = stock.customName();
        const bool replaces = papers_->hasName(name);
        if (replaces && !AskUser(bundle_, dialog_.get(), ReplaceNamedPaperText(bundle_, name),
                                 "Replace", "Cancel")) {
            return std::nullopt;
        }
        return std::pair(stock, replaces);
    }

    void copy()
    {
        const auto paper = selected();
        const std::string uuid = selectedUuid();
        if (!paper) {
            return;
        }
        const auto copied = askCopy(paper->stock());
        if (!copied) {
            return;
        }
        change([stock = copied->first, replaces = copied->second, uuid](UserPapers& papers) {
            static_cast<void>(replaces ? papers.replace(stock, "") : papers.add(stock));
            return std::string(uuid);
        });
        if (dialog_->get_mapped()) {
            const std::string fault = fileStatus();
            status_->set_text(fault.empty() ? bundle_.localizedString("StockLibraryCopied")
                                            : fault);
        }
    }

    void refresh()
    {
        if (const auto ask = ThePanelEnvironment().askForPrinterStocks) {
            ask(events_.window());
        } else {
            RetrievePrinterStocksFor(events_.window());
        }
        showState();
    }

    OSStatus handleEvent(const Event& event)
    {
        if (event.eventClass != PrinterStockEventClass || event.kind != RetrievalFinishedEvent) {
            return EventNotHandled;
        }
        const auto former = ThePanelEnvironment().printerStockList;
        if (const auto take = ThePanelEnvironment().takePrinterStocks) {
            take();
        } else if (const auto stocks = PrinterStockList()) {
            ThePanelEnvironment().printerStockList = stocks;
        }
        if (ThePanelEnvironment().printerStockList != former) {
            MarkPapersOfPrinter(*job_);
        }
        if (!showsMine()) {
            showPapers(selectedUuid()); // without an answer the papers are the same
        }
        return StatusOk;
    }

    void chooseColumns()
    {
        StockLibraryView chosen = view_;
        std::int32_t result = DialogCancel;
        RunModalStockLibraryColumnsDialog(bundle_, dialog_.get(), chosen, result);
        if (result != DialogOk || !dialog_->get_mapped()) {
            return;
        }
        view_.isHidden = chosen.isHidden;
        StartPreferenceChange([folders = UserPreferenceFolders(), isHidden = chosen.isHidden] {
            WriteOrReport([&](PreferenceFailure& failure) {
                const auto hide = [&](StockLibraryView& view) { view.isHidden = isHidden; };
                return ChangeStockLibraryView(folders, hide, failure);
            });
        });
        for (std::size_t column = 0; column < StockColumns.size(); ++column) {
            list_->get_column(static_cast<int>(column))->set_visible(!view_.isHidden[column]);
        }
    }

    // The widths that the user has set; the last column may be stretched besides.
    auto widths() const
    {
        auto widths = view_.widths;
        for (std::size_t column = 0; column < StockColumns.size(); ++column) {
            const Gtk::TreeViewColumn* shown = list_->get_column(static_cast<int>(column));
            const int width = shown->get_fixed_width();
            const int former =
                view_.widths[column] ? *view_.widths[column] : UsualStockColumnWidth(column);
            if (shown->get_visible() && width > 0 && width != former) {
                widths[column] = static_cast<std::int16_t>(std::min(width, 32'767));
            }
        }
        return widths;
    }

    bool accept()
    {
        const auto paper = selected();
        const std::string uuid = selectedUuid();
        if (!paper || paper->isInvalid()) {
            return false;
        }
        stock_.takeAsItIs(paper->stock());
        const auto leave = [uuid, widths = widths()](StockLibraryView& view) {
            view.selectedRow = uuid;
            view.widths = widths;
        };
        StartPreferenceChange([papers = papers_, uuid, leave] { papers->use(uuid, leave); });
        if (const auto printers = ThePanelEnvironment().printerStockList) {
            printers->setInUse(uuid); // for the user's list the task does it
        }
        return true;
    }

    const CFBundle& bundle_;
    JobContext context_;
    Stock stock_;
    std::shared_ptr<const JobStocks> job_;
    std::shared_ptr<UserPapers> papers_; // of a task while one runs, and once a paper is chosen
    std::shared_ptr<const CFDictionary> mine_;
    UserPapersState state_; // as papers_ was last seen
    bool hadPaper_ = false;
    StockLibraryView view_;
    Glib::RefPtr<StockListModel> model_;
    Glib::RefPtr<Gtk::Dialog> dialog_;
    Glib::RefPtr<Gtk::ComboBox> source_;
    Glib::RefPtr<Gtk::TreeView> list_;
    Buttons buttons_;
    Glib::RefPtr<Gtk::Label> status_;
    WindowEventHandler events_;
};

} // namespace

OSStatus RunModalStockLibraryDialog(const CFBundle& bundle, Gtk::Window* parent, JobContext context,
                                    Stock& stock, LibraryAnswer& answer)
{
    answer = LibraryAnswer::Cancelled;
    const auto papers = std::make_shared<UserPapers>(UserPreferenceFolders());
    const auto job = std::make_shared<JobStocks>(StocksOfJob(context, stock));
    const auto view = std::make_shared<StockLibraryView>();
    const auto reader = StockLibraryReader::Shared();
    const auto load = [papers, job, view, reader] {
        papers->load(job->stock, job->pages);
        *view = StockLibraryViewOf(*reader->read()); // of the same file, however large
    };
    if (!RunInBackground(parent, load)) {
        return StatusOk; // the print dialog has gone
    }
    auto nib = Nib::Open(bundle, "StockLibrary");
    if (!nib) {
        return StatusNoWindow;
    }
    StockLibraryWindow window(bundle, *nib, context, stock, job, papers, *view);
    if (!nib->isComplete()) {
        return StatusNoWindow;
    }
    nib.reset();
    const std::int32_t result = window.run(parent);
    StartPreferenceChange([reader] { reader->read(); }); // for the menu that led here
    if (result == DialogOk) {
        answer = LibraryAnswer::Chosen;
        stock.takeAsItIs(window.stock());
    } else if (window.hasLost(stock)) {
        answer = LibraryAnswer::PaperLost;
    }
    return StatusOk;
}

} // namespace tarvo
