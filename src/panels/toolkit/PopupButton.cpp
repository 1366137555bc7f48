#include "panels/toolkit/PopupButton.h"

#include "panels/toolkit/Guarded.h"

#include <gtkmm/cellrenderertext.h>
#include <gtkmm/liststore.h>

#include <algorithm>
#include <string>

namespace tarvo {
namespace {

struct Columns : Gtk::TreeModel::ColumnRecord {
    Columns()
    {
        add(text);
        add(value);
        add(isEnabled);
        add(isSeparator);
    }
    Gtk::TreeModelColumn<Glib::ustring> text;
    Gtk::TreeModelColumn<std::int32_t> value;
    Gtk::TreeModelColumn<bool> isEnabled;
    Gtk::TreeModelColumn<bool> isSeparator;
};

const Columns& TheColumns()
{
    static const Columns columns;
    return columns;
}

// Its longest text does not widen the window; the menu shows it whole.
void PrepareButton(Gtk::ComboBox& button)
{
    auto* renderer = Gtk::make_managed<Gtk::CellRendererText>();
    renderer->property_ellipsize() = Pango::ELLIPSIZE_END;
    button.set_popup_fixed_width(false);
    button.pack_start(*renderer);
    button.add_attribute(renderer->property_text(), TheColumns().text);
    button.add_attribute(renderer->property_sensitive(), TheColumns().isEnabled);
    button.set_row_separator_func(
        Guarded([](const Glib::RefPtr<Gtk::TreeModel>&, const Gtk::TreeModel::iterator& row) {
            return row->get_value(TheColumns().isSeparator);
        }));
    GtkComboBox* const combo = button.gobj();
    button.signal_scroll_event().connect(Guarded([combo](GdkEventScroll*) {
                                             g_signal_stop_emission_by_name(combo, "scroll-event");
                                             return false; // on to what scrolls
                                         }),
                                         false);
}

Glib::RefPtr<Gtk::ListStore> ItemsOf(const Menu& menu)
{
    const auto items = Gtk::ListStore::create(TheColumns());
    for (const MenuItem& item : menu) {
        const auto row = items->append();
        (*row)[TheColumns().text] = item.text;
        (*row)[TheColumns().value] = item.value;
        (*row)[TheColumns().isEnabled] = item.isEnabled;
        (*row)[TheColumns().isSeparator] = item.isSeparator();
    }
    return items;
}

// Other items are costly: the toolkit makes and measures a menu for them.
bool HasItems(const Gtk::ComboBox& button, const Menu& menu)
{
    const auto model = button.get_model();
    if (!model) {
        return false;
    }
    const auto rows = model->children();
    return rows.size() == menu.size() &&
           std::equal(menu.begin(), menu.end(), rows.begin(),
                      [](const MenuItem& item, const Gtk::TreeRow& row) {
                          return row.get_value(TheColumns().text).raw() == item.text &&
                                 row.get_value(TheColumns().value) == item.value &&
                                 row.get_value(TheColumns().isEnabled) == item.isEnabled &&
                                 row.get_value(TheColumns().isSeparator) == item.isSeparator();
                      });
}

} // namespace

void PopulatePopupButton(Gtk::ComboBox& button, const Menu& menu)
{
    if (!button.get_model()) {
        PrepareButton(button);
    }
    if (!HasItems(button, menu)) {
        button.set_model(ItemsOf(menu));
    }
    const auto checked =
        std::find_if(menu.begin(), menu.end(), [](const MenuItem& item) { return item.isChecked; });
    button.set_active(checked == menu.end() ? -1 : static_cast<int>(checked - menu.begin()));
}

void SetPopupButtonToTicketValue(Gtk::ComboBox* button, std::int32_t value)
{
    if (button == nullptr || !button->get_model()) {
        return;
    }
    for (const auto& row : button->get_model()->children()) {
        if (row[TheColumns().value] == value && !row[TheColumns().isSeparator]) {
            button->set_active(row);
            return;
        }
    }
}

std::int32_t GetPopupButtonTicketValue(const Gtk::ComboBox& button, std::int32_t otherwise)
{
    const auto row = button.get_active();
    return row ? (*row)[TheColumns().value] : otherwise;
}

} // namespace tarvo
