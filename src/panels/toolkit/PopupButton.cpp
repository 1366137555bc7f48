#include "panels/toolkit/PopupButton.h"

#include "panels/toolkit/Guarded.h"

#include <gtk/gtk.h>
#include <gtkmm/cellrenderertext.h>
#include <gtkmm/liststore.h>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

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
    auto items = Gtk::ListStore::create(TheColumns());
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

// Lives as long as its button.
struct ChoiceWatch {
    std::function<void()> function;
    int former = -1; // chosen when the menu was opened
};

void OnMenuActivate(GtkWidget* /*menu*/, const char* path, ChoiceWatch* watch)
{
    if (path != std::to_string(std::exchange(watch->former, -1))) {
        return;
    }
    const auto function = watch->function; // it may end the button
    function();
}

// The toolkit makes the menu as late as it likes, and another one with another style.
void WatchMenu(GtkComboBox* button, ChoiceWatch* watch)
{
    AtkObject* accessible = gtk_combo_box_get_popup_accessible(button);
    GtkWidget* menu = GTK_IS_ACCESSIBLE(accessible)
                          ? gtk_accessible_get_widget(GTK_ACCESSIBLE(accessible))
                          : nullptr;
    if (menu == nullptr || g_signal_lookup("menu-activate", G_OBJECT_TYPE(menu)) == 0) {
        return; // a list
    }
    watch->former = gtk_combo_box_get_active(button);
    g_signal_handlers_disconnect_by_data(menu, watch);
    g_signal_connect(menu, "menu-activate", G_CALLBACK(OnMenuActivate), watch);
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

void WhenChosenAgain(Gtk::ComboBox& button, std::function<void()> function)
{
    auto owner = std::make_unique<ChoiceWatch>();
    ChoiceWatch* const watch = owner.get();
    watch->function = Guarded(std::move(function));
    g_object_set_data_full(
        G_OBJECT(button.gobj()), "tarvo-choice-watch", owner.release(), [](gpointer data) {
            const std::unique_ptr<ChoiceWatch> gone(static_cast<ChoiceWatch*>(data));
        });
    GtkComboBox* const combo = button.gobj();
    button.property_popup_shown().signal_changed().connect(Guarded([combo, watch] {
        gboolean isShown = FALSE;
        g_object_get(combo, "popup-shown", &isShown, nullptr);
        if (isShown != FALSE) {
            WatchMenu(combo, watch);
        }
    }));
}

} // namespace tarvo
