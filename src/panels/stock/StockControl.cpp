#include "panels/stock/StockControl.h"

#include "panels/PanelEnvironment.h"
#include "panels/stock/StockPicture.h"
#include "panels/stock/StockWindows.h"
#include "panels/toolkit/Guarded.h"
#include "panels/toolkit/MenuWidget.h"
#include "records/Stock.h"
#include "records/StockMenu.h"
#include "records/StockSummary.h"
#include "stocklibrary/RecentPapers.h"

#include <atkmm/object.h>
#include <gtk/gtk.h>

#include <utility>

namespace tarvo {
namespace {

constexpr int IconWidth = 24;
constexpr int IconHeight = 32;

Gtk::Window* WindowOf(Gtk::Widget& widget)
{
    return dynamic_cast<Gtk::Window*>(widget.get_toplevel());
}

} // namespace

// Outlives the control while one of its dialogs is open.
struct StockControl::State : std::enable_shared_from_this<StockControl::State> {
    JobContext context = JobContext::Job;
    Stock* stock = nullptr; // null once the control has gone
    std::function<void()> onChange;
    Glib::RefPtr<Gtk::Button> menuButton;
    Glib::RefPtr<Gtk::Button> iconButton;
    Glib::RefPtr<Gtk::Label> summary;
    std::unique_ptr<Gtk::Menu> menu; // the last one that was opened

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
        if (Gtk::Widget* former = iconButton->get_child()) {
            iconButton->remove();
            static_cast<void>(former);
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

    void show()
    {
        const CFBundle* bundle = GetPDEBundle();
        if (bundle == nullptr || stock == nullptr || !menuButton) {
            return;
        }
        const std::string text = StockSummaryText(*bundle, context, stock);
        if (summary) {
            summary->set_text(text);
        }
        if (iconButton) {
            iconButton->queue_draw();
        }
        menuButton->get_accessible()->set_description(text);
    }

    void open(Gtk::Button& button)
    {
        const CFBundle* bundle = GetPDEBundle();
        if (bundle == nullptr || stock == nullptr) {
            return;
        }
        const auto printerList = ThePanelEnvironment().printerStockList;
        const auto papers = RecentPapers(UserPreferenceFolders(), printerList.get());
        menu = MakeMenuWidget(PopulateStockMenu(*bundle, context, *stock, papers),
                              [weak = weak_from_this()](const MenuItem& item) {
                                  if (const auto state = weak.lock()) {
                                      state->choose(item);
                                  }
                              });
        menu->popup_at_widget(&button, Gdk::GRAVITY_SOUTH_WEST, Gdk::GRAVITY_NORTH_WEST, nullptr);
    }

    // On a copy: the panel with the stock may go while a dialog is open.
    void choose(const MenuItem& item)
    {
        const CFBundle* bundle = GetPDEBundle();
        if (bundle == nullptr || stock == nullptr) {
            return;
        }
        const auto printerList = ThePanelEnvironment().printerStockList;
        Stock edited(*stock);
        StockWindows dialogs(*bundle, WindowOf(*menuButton.get()));
        LibraryPapers papers(UserPreferenceFolders(), printerList.get());
        const StockMenuEffect effect =
            StockMenuCommandEventHandler(item, context, edited, dialogs, papers);
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
