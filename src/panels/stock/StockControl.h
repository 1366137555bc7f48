#pragma once

#include "settings/JobContext.h"

#include <gtkmm/button.h>
#include <gtkmm/label.h>

#include <functional>
#include <memory>

namespace tarvo {

class Stock;

/// A stock in a panel or a dialog: a button with the stock menu, a second one with a picture of the
/// paper that opens the same menu, and the summary below. A choice, with whatever dialogs it asks
/// for, sets the stock and shows it.
class StockControl {
public:
    /// @param context   for whom the stock is chosen
    /// @param stock     borrowed; may be set from elsewhere too, see show
    /// @param onChange  called after the user has changed the stock; may be empty
    StockControl(JobContext context, Stock& stock, std::function<void()> onChange);
    StockControl(const StockControl&) = delete;
    StockControl& operator=(const StockControl&) = delete;
    /// The controls stay, without effect; also while a dialog of this is open.
    ~StockControl();

    /// Takes the controls, once, and shows the stock.
    /// @param menu     its label names what is chosen, such as "Stock"
    /// @param icon     null for none; its contents are replaced by the picture
    /// @param summary  null for none
    void bind(const Glib::RefPtr<Gtk::Button>& menu, const Glib::RefPtr<Gtk::Button>& icon,
              const Glib::RefPtr<Gtk::Label>& summary);

    /// Shows the stock as it is now, for who has set it.
    void show();

private:
    struct State;
    std::shared_ptr<State> state_;
};

} // namespace tarvo
