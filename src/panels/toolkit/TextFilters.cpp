#include "panels/toolkit/TextFilters.h"

#include "panels/toolkit/Guarded.h"
#include "settings/SettingMap.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

namespace tarvo {

constexpr std::uint32_t FieldEventClass = FourCharCode("TPDE");
const Event FieldEmptied{FieldEventClass, FourCharCode("ICno")};
const Event FieldFilled{FieldEventClass, FourCharCode("ICso")};

namespace {

constexpr const char* FilterDataName = "tarvo-text-filter";

// What one field takes; lives as long as the field.
struct TextFilter {
    GtkEntry* field = nullptr;
    std::size_t limit = 0;      // characters; 0 for none
    Glib::ustring characters;   // empty: all
    bool isNumeric = false;     // digits only
    FieldEventFunction onEvent; // may be empty

    bool accepts(gunichar character) const
    {
        return (!isNumeric || (character >= '0' && character <= '9')) &&
               (characters.empty() || characters.find(character) != Glib::ustring::npos);
    }
    bool accepts(const Glib::ustring& text) const
    {
        const std::size_t length = gtk_entry_get_text_length(field);
        const bool isTypedBeyondLimit = limit > 0 && text.size() == 1 && length >= limit;
        return !isTypedBeyondLimit &&
               std::all_of(text.begin(), text.end(),
                           [this](gunichar character) { return accepts(character); });
    }
    static bool isOfControls(const Glib::ustring& text)
    {
        return std::all_of(text.begin(), text.end(),
                           [](gunichar character) { return Glib::Unicode::iscntrl(character); });
    }

    void onInsert(const Glib::ustring& text)
    {
        if (!isOfControls(text) && !accepts(text)) {
            g_signal_stop_emission_by_name(field, "insert-text");
            gtk_widget_error_bell(GTK_WIDGET(field));
        }
    }
    void onChange() const
    {
        const Glib::ustring text = gtk_entry_get_text(field);
        if (limit > 0 && text.size() > limit) {
            gtk_entry_set_text(field, text.substr(0, limit).c_str()); // comes here again
        } else if (onEvent) {
            onEvent(text.empty() ? FieldEmptied : FieldFilled);
        }
    }
};

TextFilter& FilterOf(Gtk::Entry& field)
{
    GObject* const object = G_OBJECT(field.gobj());
    if (auto* present = static_cast<TextFilter*>(g_object_get_data(object, FilterDataName))) {
        return *present;
    }
    auto owner = std::make_unique<TextFilter>();
    TextFilter* const filter = owner.get();
    filter->field = field.gobj();
    g_object_set_data_full(object, FilterDataName, owner.release(), [](gpointer data) {
        const std::unique_ptr<TextFilter> gone(static_cast<TextFilter*>(data));
    });
    field.signal_insert_text().connect(
        Guarded([filter](const Glib::ustring& text, int*) { filter->onInsert(text); }), false);
    field.signal_changed().connect(Guarded([filter] { filter->onChange(); }));
    return *filter;
}

void SetEvent(TextFilter& filter, FieldEventFunction onEvent)
{
    if (onEvent) {
        filter.onEvent = std::move(onEvent);
    }
}

} // namespace

void FilterNumericInput(Gtk::Entry& field, FieldEventFunction onEvent)
{
    TextFilter& filter = FilterOf(field);
    filter.isNumeric = true;
    SetEvent(filter, std::move(onEvent));
}

void LimitInputLength(Gtk::Entry* field, std::int32_t limit, FieldEventFunction onEvent)
{
    if (field == nullptr || limit < 1) {
        return;
    }
    TextFilter& filter = FilterOf(*field);
    filter.limit = static_cast<std::size_t>(limit);
    SetEvent(filter, std::move(onEvent));
}

void LimitInputLengthAndCharacters(Gtk::Entry* field, std::int32_t limit,
                                   std::string_view characters, FieldEventFunction onEvent)
{
    if (field == nullptr) {
        return;
    }
    TextFilter& filter = FilterOf(*field);
    filter.limit = limit < 1 ? 0 : static_cast<std::size_t>(limit);
    filter.characters = std::string(characters);
    SetEvent(filter, std::move(onEvent));
}

} // namespace tarvo
