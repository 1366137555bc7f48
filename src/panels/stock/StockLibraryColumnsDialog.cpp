#include "panels/stock/StockLibraryColumnsDialog.h"

#include "panels/toolkit/DialogChecks.h"
#include "panels/toolkit/Dialogs.h"
#include "panels/toolkit/Nib.h"

#include <gtkmm/checkbutton.h>

#include <array>
#include <string>

namespace tarvo {

OSStatus RunModalStockLibraryColumnsDialog(const CFBundle& bundle, Gtk::Window* parent,
                                           StockLibraryView& view, std::int32_t& result)
{
    result = DialogCancel;
    auto nib = Nib::Open(bundle, "StockLibraryColumns");
    if (!nib) {
        return StatusNoWindow;
    }
    const auto dialog = nib->window<Gtk::Dialog>("StockLibraryColumns");
    std::array<Glib::RefPtr<Gtk::CheckButton>, StockColumns.size()> boxes;
    for (std::size_t column = 0; column < boxes.size(); ++column) {
        const std::string name = "TPDE" + std::to_string(column + 1);
        boxes[column] = nib->widget<Gtk::CheckButton>(name.c_str());
    }
    if (!nib->isComplete()) {
        return StatusNoWindow;
    }
    nib.reset();
    for (std::size_t column = 0; column < boxes.size(); ++column) {
        boxes[column]->set_active(!view.isHidden[column]);
    }
    boxes.front()->set_sensitive(false);
    AcceptOnlyIf(*dialog.get(), [&view, &boxes] {
        for (std::size_t column = 1; column < boxes.size(); ++column) {
            view.isHidden[column] = !boxes[column]->get_active();
        }
        return true;
    });
    result = RunModalWindow(bundle, *dialog.get(), parent);
    return StatusOk;
}

} // namespace tarvo
