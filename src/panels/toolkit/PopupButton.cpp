#include "panels/toolkit/PopupButton.h"

#include "panels/toolkit/Guarded.h"

#include <gtkmm/cellrenderertext.h>
#include <gtkmm/liststore.h>

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

void PrepareButton(Gtk::ComboBox& button)
{
    auto* renderer = Gtk::make_managed<Gtk::CellRendererText>();
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

} // namespace

void PopulatePopupButton(Gtk::ComboBox& button, const Menu& menu)
{
    if (!button.get_model()) {
        PrepareButton(button);
    }
    const auto items = Gtk::ListStore::create(TheColumns());
    Gtk::TreeModel::iterator checked;
    for (const MenuItem& item : menu) {
        const auto row = items->append();
        (*row)[TheColumns().text] = item.text;
        (*row)[TheColumns().value] = item.value;
        (*row)[TheColumns().isEnabled] = item.isEnabled;
        (*row)[TheColumns().isSeparator] = item.isSeparator();
        if (item.isChecked && !checked) {
            checked = row;
        }
    }
    button.set_model(items);
    if (checked) {
        button.set_active(checked);
    }
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
