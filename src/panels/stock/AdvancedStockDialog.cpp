#include "panels/stock/AdvancedStockDialog.h"

#include "panels/stock/StockWindows.h"
#include "panels/toolkit/DialogChecks.h"
#include "panels/toolkit/Dialogs.h"
#include "panels/toolkit/Guarded.h"
#include "panels/toolkit/Nib.h"
#include "panels/toolkit/PopupButton.h"
#include "panels/toolkit/SpinFields.h"
#include "panels/toolkit/TextFilters.h"
#include "panels/toolkit/WidgetTexts.h"
#include "platform/bundle/CFBundle.h"
#include "records/AdvancedStock.h"
#include "records/Stock.h"
#include "records/StockMenu.h"
#include "records/StockSummary.h"
#include "settings/StockMaps.h"

#include <gtkmm/checkbutton.h>
#include <gtkmm/label.h>

#include <array>
#include <optional>
#include <utility>

namespace tarvo {
namespace {

// One pop-up: the attribute's command and what it shows of a stock. Null ends the table.
struct PopupRow {
    const char* widget;
    std::uint32_t command;
    std::int32_t (*value)(const Stock& stock);
};

constexpr PopupRow PopupMap[] = {
    {"TPDE1",  StockCommand::Size,        [](const Stock& stock) { return stock.size(); }       },
    {"TPDE2",  StockCommand::Color,       [](const Stock& stock) { return stock.color(); }      },
    {"TPDE3",  StockCommand::Type,        [](const Stock& stock) { return stock.type(); }       },
    {"TPDE4",  StockCommand::Punched,     [](const Stock& stock) { return stock.punched(); }    },
    {"TPDE5",  StockCommand::Description,
     [](const Stock& stock) { return stock.description().empty() ? UnsetValue : 0; }            },
    {"TPDE8",  StockCommand::SidesCoated, [](const Stock& stock) { return stock.sidesCoated(); }},
    {"TPDE9",  StockCommand::CoatingType, [](const Stock& stock) { return stock.coatingType(); }},
    {"TPDE10", StockCommand::Finish,      [](const Stock& stock) { return stock.finish(); }     },
    {"TPDE11", StockCommand::Grain,       [](const Stock& stock) { return stock.grain(); }      },
    {nullptr,  0,                         nullptr                                               },
};
constexpr std::size_t PopupCount = std::size(PopupMap) - 1;
constexpr std::size_t SizePopup = 0;
constexpr std::size_t CoatingPopup = 6;
constexpr std::size_t WeightLikePopup = 1; // its first item says whose choice is left

// What the dialog's pop-ups ask never comes from a library.
class NoPapers : public NamedPapers {
public:
    std::optional<Stock> use(std::string_view /*uuid*/) override { return std::nullopt; }
    void clearRecentlyUsed() override {}
};

Menu SurfaceMenu(const CFBundle& bundle, const SettingMap* map, JobContext context)
{
    Menu menu;
    PopulateMenuFromMap(bundle, menu, map, context);
    return menu;
}

class AdvancedStockWindow {
public:
    AdvancedStockWindow(const CFBundle& bundle, Nib& nib, NamedPaperContext paperContext,
                        const NamedPaperRequest& request, const Stock& stock)
        : bundle_(bundle), paperContext_(paperContext), request_(request), edited_(stock)
    {
        const bool isOfMenu = paperContext == NamedPaperContext::StockMenu;
        const char* const names[] = {"AdvancedStockSelection", "NamedPaperStockSelection"};
        const auto unused = nib.widget<Gtk::Dialog>(names[isOfMenu ? 1 : 0]);
        dialog_ = nib.widget<Gtk::Dialog>(names[isOfMenu ? 0 : 1]);
        const auto content = nib.widget<Gtk::Widget>("TPDE100");
        takeControls(nib);
        if (unused) {
            gtk_widget_destroy(GTK_WIDGET(unused->gobj()));
        }
        if (nib.isComplete()) {
            MoveInto(*dialog_->get_content_area(), content);
            dialog_ = nib.window<Gtk::Dialog>(names[isOfMenu ? 0 : 1]); // with the texts of all
        } else if (dialog_) {
            gtk_widget_destroy(GTK_WIDGET(dialog_->gobj()));
        }
    }

    std::int32_t run(Gtk::Window* parent)
    {
        populate();
        prepareName();
        show();
        connect();
        AcceptOnlyIf(*dialog_.get(), [this] { return accept(); });
        return RunModalWindow(bundle_, *dialog_.get(), parent);
    }

    const Stock& edited() const { return edited_; }
    bool replaces() const { return replaces_; }

private:
    void takeControls(Nib& nib)
    {
        for (std::size_t index = 0; index < PopupCount; ++index) {
            popups_[index] = nib.widget<Gtk::ComboBox>(PopupMap[index].widget);
        }
        weight_ = nib.widget<Gtk::SpinButton>("TPDE6");
        isDefaultWeight_ = nib.widget<Gtk::CheckButton>("TPDE7");
        name_ = nib.widget<Gtk::Entry>("TPDE12");
        nameLabel_ = nib.widget<Gtk::Label>("TPDE112");
        isNameOnly_ = nib.widget<Gtk::CheckButton>("TPDE13");
        nameOnlyComment_ = nib.widget<Gtk::Label>("TPDE113");
        comment_ = nib.widget<Gtk::Entry>("TPDE14");
        summary_ = nib.widget<Gtk::Label>("TPDE15");
        revert_ = nib.widget<Gtk::Button>("TPDE16");
    }

    void populate()
    {
        const JobContext context = request_.context;
        const AdvancedStockMenus menus = MakeAdvancedStockMenus(bundle_, context, edited_);
        const Menu all[PopupCount] = {
            menus.size,
            menus.color,
            menus.type,
            menus.punched,
            menus.description,
            SurfaceMenu(bundle_, SidesCoatedMap, context),
            SurfaceMenu(bundle_, CoatingTypeMap, context),
            SurfaceMenu(bundle_, FinishMap, context),
            SurfaceMenu(bundle_, GrainMap, context),
        };
        for (std::size_t index = 0; index < PopupCount; ++index) {
            PopulatePopupButton(*popups_[index].get(), all[index]);
        }
        isDefaultWeight_->set_label(all[WeightLikePopup].front().text); // of a page: of its job
        popups_[SizePopup]->set_sensitive(menus.isSizeEnabled);
        ShowSpin(*weight_.get(), StockWeightRange, edited_.weight());
    }

    void prepareName()
    {
        const bool hasName = paperContext_ == NamedPaperContext::StockLibrary;
        name_->set_visible(hasName);
        nameLabel_->set_visible(hasName);
        isNameOnly_->set_visible(hasName);
        nameOnlyComment_->set_visible(hasName);
        comment_->set_text(edited_.comment());
        if (hasName) {
            dialog_->set_title(bundle_.localizedString(NamedPaperTitleKey(request_.mode)));
            name_->set_text(edited_.customName());
            LimitInputLength(name_.get(), static_cast<std::int32_t>(LongestPaperName));
            isNameOnly_->set_active(edited_.customNameOnly());
            name_->grab_focus();
        }
    }

    void connect()
    {
        for (std::size_t index = 0; index < PopupCount; ++index) {
            popups_[index]->signal_changed().connect(Guarded([this, index] { choose(index); }));
            WhenChosenAgain(*popups_[index].get(), [this, index] { choose(index); });
        }
        const auto connectShown = [this](auto&& signal, void (AdvancedStockWindow::*enter)()) {
            signal.connect(Guarded([this, enter] {
                if (!isShowing_) {
                    (this->*enter)();
                    show();
                }
            }));
        };
        connectShown(weight_->signal_value_changed(), &AdvancedStockWindow::enterWeight);
        connectShown(isDefaultWeight_->signal_toggled(), &AdvancedStockWindow::enterDefaultWeight);
        connectShown(name_->signal_changed(), &AdvancedStockWindow::enterName);
        connectShown(isNameOnly_->signal_toggled(), &AdvancedStockWindow::enterNameOnly);
        connectShown(comment_->signal_changed(), &AdvancedStockWindow::enterComment);
        connectShown(revert_->signal_clicked(), &AdvancedStockWindow::revert);
    }

    void enterWeight() { EnterWeight(edited_, weight_->get_value_as_int()); }
    void enterDefaultWeight() { ChooseDefaultWeight(edited_, isDefaultWeight_->get_active()); }
    void enterName() { EnterPaperName(edited_, name_->get_text().raw()); }
    void enterNameOnly() { edited_.setCustomNameOnly(isNameOnly_->get_active()); }
    void enterComment() { edited_.setComment(PlainText(comment_->get_text().raw())); }
    void revert()
    {
        RevertAdvancedStock(edited_, request_.context);
        isShowing_ = true;
        comment_->set_text(edited_.comment());
        isShowing_ = false;
    }

    // As in the stock menu, but for the paper's name, which is its own here.
    void choose(std::size_t index)
    {
        if (isShowing_) {
            return;
        }
        MenuItem item;
        item.command = PopupMap[index].command;
        item.value = GetPopupButtonTicketValue(*popups_[index].get(), UnsetValue);
        StockWindows dialogs(bundle_, dialog_.get());
        NoPapers papers;
        const std::string name = edited_.customName();
        const bool isNameOnly = edited_.customNameOnly();
        StockMenuCommandEventHandler(item, request_.context, edited_, dialogs, papers);
        edited_.setCustomName(name);
        edited_.setCustomNameOnly(isNameOnly);
        if (dialog_->get_mapped()) { // it may have gone with the application's
            show();
        }
    }

    void show()
    {
        isShowing_ = true;
        for (std::size_t index = 0; index < PopupCount; ++index) {
            const bool isShown = index != SizePopup || request_.context != JobContext::Job;
            popups_[index]->unset_active();
            if (isShown) {
                SetPopupButtonToTicketValue(popups_[index].get(), PopupMap[index].value(edited_));
            }
        }
        popups_[CoatingPopup]->set_sensitive(edited_.sidesCoated() >= CoatedInFront);
        isDefaultWeight_->set_active(edited_.weight() == UnsetValue);
        weight_->set_sensitive(edited_.weight() != UnsetValue);
        const std::int32_t weight = SpinValue(StockWeightRange, edited_.weight());
        if (weight_->get_value_as_int() != weight) { // else what is being typed would go
            weight_->set_value(weight);
        }
        summary_->set_text(ShownText(StockSummaryText(bundle_, request_.context, &edited_)));
        dialog_->set_response_sensitive(Gtk::RESPONSE_OK,
                                        check(false) != NamedPaperCheck::NameMissing);
        isShowing_ = false;
    }

    NamedPaperCheck check(bool isTaken) const
    {
        return CheckNamedPaper(paperContext_, edited_, true, isTaken);
    }

    bool accept()
    {
        weight_->update(); // what was typed last
        const bool isTaken = request_.isTaken && request_.isTaken(edited_.customName());
        if (check(isTaken) == NamedPaperCheck::AskToReplace) {
            replaces_ =
                AskUser(bundle_, dialog_.get(),
                        ReplaceNamedPaperText(bundle_, edited_.customName()), "Replace", "Cancel");
            return replaces_;
        }
        return check(isTaken) == NamedPaperCheck::Save;
    }

    const CFBundle& bundle_;
    NamedPaperContext paperContext_;
    const NamedPaperRequest& request_;
    Stock edited_;
    bool replaces_ = false;
    bool isShowing_ = false;
    Glib::RefPtr<Gtk::Dialog> dialog_;
    std::array<Glib::RefPtr<Gtk::ComboBox>, PopupCount> popups_;
    Glib::RefPtr<Gtk::SpinButton> weight_;
    Glib::RefPtr<Gtk::CheckButton> isDefaultWeight_;
    Glib::RefPtr<Gtk::Entry> name_;
    Glib::RefPtr<Gtk::Label> nameLabel_;
    Glib::RefPtr<Gtk::CheckButton> isNameOnly_;
    Glib::RefPtr<Gtk::Label> nameOnlyComment_;
    Glib::RefPtr<Gtk::Entry> comment_;
    Glib::RefPtr<Gtk::Label> summary_;
    Glib::RefPtr<Gtk::Button> revert_;
};

OSStatus Run(const CFBundle& bundle, Gtk::Window* parent, NamedPaperContext paperContext,
             const NamedPaperRequest& request, Stock& stock, std::int32_t& result, bool& replaces)
{
    result = DialogCancel;
    replaces = false;
    auto nib = Nib::Open(bundle, "AdvancedStockSelection");
    if (!nib) {
        return StatusNoWindow;
    }
    AdvancedStockWindow window(bundle, *nib, paperContext, request, stock);
    if (!nib->isComplete()) {
        return StatusNoWindow;
    }
    nib.reset();
    result = window.run(parent);
    if (result == DialogOk) {
        stock.takeAsItIs(window.edited());
        replaces = window.replaces();
    }
    return StatusOk;
}

} // namespace

OSStatus RunModalAdvancedStockSelection(const CFBundle& bundle, Gtk::Window* parent,
                                        JobContext context, Stock& stock, std::int32_t& result)
{
    NamedPaperRequest request;
    request.context = context;
    bool replaces = false;
    return Run(bundle, parent, NamedPaperContext::StockMenu, request, stock, result, replaces);
}

OSStatus RunModalNamedPaperStockSelection(const CFBundle& bundle, Gtk::Window* parent,
                                          const NamedPaperRequest& request, Stock& stock,
                                          std::int32_t& result, bool& replaces)
{
    return Run(bundle, parent, NamedPaperContext::StockLibrary, request, stock, result, replaces);
}

} // namespace tarvo
