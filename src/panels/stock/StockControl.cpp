#include "panels/stock/StockControl.h"

#include "panels/PanelEnvironment.h"
#include "panels/stock/StockPicture.h"
#include "panels/stock/StockWindows.h"
#include "panels/toolkit/BackgroundWork.h"
#include "panels/toolkit/Guarded.h"
#include "panels/toolkit/MenuWidget.h"
#include "panels/toolkit/WidgetTexts.h"
#include "prefs/PreferenceTasks.h"
#include "records/Stock.h"
#include "records/StockDialogs.h"
#include "records/StockMenu.h"
#include "records/StockSummary.h"
#include "stocklibrary/RecentPapers.h"
#include "stocklibrary/StockLibraryReader.h"

#include <atkmm/object.h>
#include <gtk/gtk.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace tarvo {
namespace {

constexpr int IconWidth = 24;
constexpr int IconHeight = 32;

Gtk::Window* WindowOf(Gtk::Widget& widget)
{
    return dynamic_cast<Gtk::Window*>(widget.get_toplevel());
}

// The papers that an open menu offers. Nobody waits for what choosing one changes in the user's
// file.
class OfferedPapers : public NamedPapers {
public:
    OfferedPapers(std::shared_ptr<StockLibraryReader> reader, const CFDictionary& library,
                  std::shared_ptr<StockLibraryList> printerList)
        : reader_(std::move(reader)),
          printerList_(std::move(printerList)),
          papers_(RecentPapers(library, printerList_.get(), &stocks_))
    {
    }

    const std::vector<NamedPaper>& papers() const { return papers_; }

    std::optional<Stock> use(std::string_view uuid) override
    {
        const auto paper =
            std::find_if(papers_.begin(), papers_.end(),
                         [uuid](const NamedPaper& each) { return each.uuid == uuid; });
        if (paper == papers_.end()) {
            return std::nullopt;
        }
        if (printerList_) {
            printerList_->setInUse(paper->uuid);
        }
        changeFile([chosen = paper->uuid](const PreferenceFolders& folders) {
            RememberRecentPaper(folders, chosen);
        });
        return stocks_[static_cast<std::size_t>(paper - papers_.begin())];
    }
    void clearRecentlyUsed() override { changeFile(ForgetRecentPapers); }

private:
    template <typename Change>
    void changeFile(Change change)
    {
        StartPreferenceChange([change, folders = UserPreferenceFolders(), reader = reader_] {
            change(folders);
            reader->read(); // for the next menu
        });
    }

    std::shared_ptr<StockLibraryReader> reader_;
    std::shared_ptr<StockLibraryList> printerList_; // of the main thread
    std::vector<Stock> stocks_;
    std::vector<NamedPaper> papers_; // in the order of stocks_
};

} // namespace

// Outlives the control while one of its dialogs is open.
struct StockControl::State : std::enable_shared_from_this<StockControl::State> {
    JobContext context = JobContext::Job;
    Stock* stock = nullptr; // null once the control has gone
    std::function<void()> onChange;
    Glib::RefPtr<Gtk::Button> menuButton;
    Glib::RefPtr<Gtk::Button> iconButton;
    Glib::RefPtr<Gtk::Label> summary;
    std::shared_ptr<StockLibraryReader> library = StockLibraryReader::Shared();
    std::unique_ptr<Gtk::Menu> menu;        // the last one that was opened
    std::shared_ptr<OfferedPapers> offered; // in that menu

    void connect(Gtk::Button& button)
    {
        button.signal_clicked().connect(Guarded([weak = weak_from_this(), shown = &button] {
            if (const auto state = weak.lock()) {
                state->open(*shown);
            }
        }));
    }

    void showIcon()
    {
        if (iconButton->get_child() != nullptr) {
            iconButton->remove();
        }
        auto* area = Gtk::make_managed<Gtk::DrawingArea>();
        area->set_size_request(IconWidth, IconHeight);
        ShowDrawing(*area, [weak = weak_from_this()](const auto& cairo, const PictureBox& box) {
            const auto state = weak.lock();
            if (state && state->stock != nullptr) {
                DrawPaper(cairo, box, *state->stock);
            }
        });
        area->show();
        iconButton->add(*area);
    }

    void show() const
    {
        const CFBundle* bundle = GetPDEBundle();
        if (bundle == nullptr || stock == nullptr || !menuButton) {
            return;
        }
        const std::string text = ShownText(StockSummaryText(*bundle, context, stock));
        if (summary) {
            summary->set_text(text);
        }
        if (iconButton) {
            iconButton->queue_draw();
        }
        menuButton->get_accessible()->set_description(text);
    }

    // The user's papers; null when the panel has gone meanwhile.
    std::shared_ptr<const CFDictionary> readLibrary(Gtk::Button& button)
    {
        if (library->isFileKnown()) {
            return library->read();
        }
        // Somebody else has changed it, or it is still being read.
        const auto contents = std::make_shared<std::shared_ptr<const CFDictionary>>();
        const auto read = [reader = library, contents] { *contents = reader->read(); };
        return RunInBackground(WindowOf(button), read) && stock != nullptr ? *contents : nullptr;
    }

    void open(Gtk::Button& button)
    {
        const CFBundle* bundle = GetPDEBundle();
        if (bundle == nullptr || stock == nullptr) {
            return;
        }
        const auto papers = readLibrary(button);
        if (papers == nullptr) {
            return;
        }
        offered = std::make_shared<OfferedPapers>(library, *papers,
                                                  ThePanelEnvironment().printerStockList);
        menu = MakeMenuWidget(PopulateStockMenu(*bundle, context, *stock, offered->papers()),
                              [weak = weak_from_this()](const MenuItem& item) {
                                  if (const auto state = weak.lock()) {
                                      state->choose(item);
                                  }
                              });
        menu->popup_at_widget(&button, Gdk::GRAVITY_SOUTH_WEST, Gdk::GRAVITY_NORTH_WEST, nullptr);
    }

    // On a copy: the panel with the stock may go while a dialog is open.
    void choose(const MenuItem& item) const
    {
        const CFBundle* bundle = GetPDEBundle();
        if (bundle == nullptr || stock == nullptr) {
            return;
        }
        const auto papers = offered; // a dialog may let another menu open
        Stock edited(*stock);
        StockWindows dialogs(*bundle, WindowOf(*menuButton.get()));
        const StockMenuEffect effect =
            StockMenuCommandEventHandler(item, context, edited, dialogs, *papers);
        if (stock == nullptr || !effect.changesStock) {
            return;
        }
        stock->takeAsItIs(std::move(edited));
        show();
        if (onChange) {
            onChange();
        }
    }
};

StockControl::StockControl(JobContext context, Stock& stock, std::function<void()> onChange)
    : state_(std::make_shared<State>())
{
    state_->context = context;
    state_->stock = &stock;
    state_->onChange = std::move(onChange);
}

StockControl::~StockControl()
{
    state_->stock = nullptr;
    state_->onChange = nullptr;
}

void StockControl::bind(const Glib::RefPtr<Gtk::Button>& menu,
                        const Glib::RefPtr<Gtk::Button>& icon,
                        const Glib::RefPtr<Gtk::Label>& summary)
{
    state_->menuButton = menu;
    state_->iconButton = icon;
    state_->summary = summary;
    ReadAhead(state_->library);
    state_->connect(*menu.get());
    if (icon) {
        state_->showIcon();
        state_->connect(*icon.get());
    }
    show();
}

void StockControl::show()
{
    state_->show();
}

} // namespace tarvo
