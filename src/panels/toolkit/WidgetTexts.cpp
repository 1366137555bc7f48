#include "panels/toolkit/WidgetTexts.h"

#include "platform/bundle/CFBundle.h"
#include "platform/text/Utf8.h"

#include <atkmm/object.h>
#include <glibmm/main.h>
#include <gtk/gtk.h>
#include <gtkmm/button.h>
#include <gtkmm/container.h>
#include <gtkmm/label.h>
#include <gtkmm/window.h>

#include <algorithm>
#include <string>

namespace tarvo {
namespace {

constexpr gunichar MnemonicMark = '_';

void SetAccessibleName(Gtk::Widget& widget, const std::string& name)
{
    atk_object_set_name(gtk_widget_get_accessible(widget.gobj()), name.c_str());
}

// The name that a widget was given; not the one that its kind makes of its text.
std::string OwnAccessibleName(Gtk::Widget& widget)
{
    const char* name = gtk_widget_get_accessible(widget.gobj())->name;
    return name == nullptr ? "" : name;
}

std::string Localized(const CFBundle& bundle, const std::string& key)
{
    return bundle.localizedString(key.c_str());
}

void LocalizeWidget(const CFBundle& bundle, Gtk::Widget& widget)
{
    if (auto* button = dynamic_cast<Gtk::Button*>(&widget)) {
        if (!button->get_label().empty()) {
            button->set_label(Localized(bundle, button->get_label()));
        }
    } else if (auto* label = dynamic_cast<Gtk::Label*>(&widget)) {
        const bool isOfButton = label->get_ancestor(GTK_TYPE_BUTTON) != nullptr;
        if (!label->get_text().empty() && !isOfButton) {
            label->set_text(Localized(bundle, label->get_text()));
        }
    } else if (auto* window = dynamic_cast<Gtk::Window*>(&widget)) {
        if (!window->get_title().empty()) {
            window->set_title(Localized(bundle, window->get_title()));
        }
    }
    if (const std::string tooltip = widget.get_tooltip_text(); !tooltip.empty()) {
        widget.set_tooltip_text(Localized(bundle, tooltip));
    }
    if (const std::string name = OwnAccessibleName(widget); !name.empty()) {
        SetAccessibleName(widget, Localized(bundle, name));
    }
}

// A letter of a text and where it stands in it.
struct Letter {
    gunichar letter; // in lower case
    std::size_t place;
};

// Letters that may be underlined, the best first.
std::vector<Letter> Letters(const Glib::ustring& text)
{
    std::vector<Letter> first;
    std::vector<Letter> others;
    bool isInWord = false;
    for (std::size_t place = 0; place < text.size(); ++place) {
        const gunichar letter = text[place];
        if (Glib::Unicode::isalnum(letter)) {
            (isInWord ? others : first).push_back({Glib::Unicode::tolower(letter), place});
        }
        isInWord = Glib::Unicode::isalnum(letter);
    }
    first.insert(first.end(), others.begin(), others.end());
    return first;
}

// The text with a mark before its letter and before marks that are part of it.
Glib::ustring Marked(const Glib::ustring& text, std::size_t place)
{
    Glib::ustring marked;
    for (std::size_t position = 0; position < text.size(); ++position) {
        if (position == place || text[position] == MnemonicMark) {
            marked += MnemonicMark;
        }
        marked += text[position];
    }
    return marked;
}

// A text with the first of its letters that is free underlined; as it is when none is.
Glib::ustring WithMnemonic(const Glib::ustring& text, std::set<gunichar>& taken)
{
    for (const Letter& candidate : Letters(text)) {
        if (taken.insert(candidate.letter).second) {
            return Marked(text, candidate.place);
        }
    }
    return Marked(text, text.size());
}

// What a button with an underlined letter shows.
std::string WithoutMark(const Gtk::Button& button)
{
    const auto* label = dynamic_cast<const Gtk::Label*>(button.get_child());
    return label == nullptr ? "" : label->get_text().raw();
}

// A dialog's own buttons may take marks and have none.
bool HasMark(const Gtk::Button& button)
{
    return button.get_use_underline() &&
           button.get_label().find(MnemonicMark) != Glib::ustring::npos;
}

gunichar MnemonicOf(const Gtk::Label& label)
{
    const guint key = gtk_label_get_mnemonic_keyval(const_cast<GtkLabel*>(label.gobj()));
    return key == GDK_KEY_VoidSymbol ? 0 : gdk_keyval_to_unicode(gdk_keyval_to_lower(key));
}

// The label of a control; null for any other widget, also for what a button makes of its own text.
Gtk::Label* LabelOfControl(Gtk::Widget& widget)
{
    auto* label = dynamic_cast<Gtk::Label*>(&widget);
    if (label == nullptr || label->get_mnemonic_widget() == nullptr) {
        return nullptr;
    }
    auto* button = dynamic_cast<Gtk::Button*>(label->get_ancestor(GTK_TYPE_BUTTON));
    return button == nullptr || button->get_label().empty() ? label : nullptr;
}

// @return whether there is a letter and it is free, and taken from now on
bool Take(const Gtk::Label& label, std::set<gunichar>& taken)
{
    const gunichar letter = MnemonicOf(label);
    return letter != 0 && taken.insert(letter).second;
}

// A letter that has been given stays, unless another has it meanwhile.
void KeepMnemonic(Gtk::Widget& widget, std::set<gunichar>& taken)
{
    if (auto* button = dynamic_cast<Gtk::Button*>(&widget)) {
        const auto* label = dynamic_cast<Gtk::Label*>(button->get_child());
        if (label != nullptr && HasMark(*button) && !Take(*label, taken)) {
            const std::string text = WithoutMark(*button);
            button->set_use_underline(false);
            button->set_label(text);
        }
        return;
    }
    auto* label = LabelOfControl(widget);
    if (label != nullptr && label->get_use_underline() && !Take(*label, taken)) {
        label->set_text(label->get_text());
    }
}

void AddMnemonic(Gtk::Widget& widget, std::set<gunichar>& taken)
{
    if (auto* button = dynamic_cast<Gtk::Button*>(&widget)) {
        if (!button->get_label().empty() && !HasMark(*button)) {
            button->set_label(WithMnemonic(button->get_label(), taken));
            button->set_use_underline(true);
        }
        return;
    }
    auto* label = LabelOfControl(widget);
    if (label != nullptr && !label->get_use_underline()) {
        label->set_text_with_mnemonic(WithMnemonic(label->get_text(), taken));
    }
}

// @param except  a button whose letter does not count; may be null
std::set<gunichar> MnemonicsOnScreen(Gtk::Widget& window, const Gtk::Button* except)
{
    std::set<gunichar> letters;
    ForEachWidget(window, [&letters, except](Gtk::Widget& widget) {
        auto* label = dynamic_cast<Gtk::Label*>(&widget);
        if (label == nullptr || !label->get_mapped()) {
            return;
        }
        if (except == nullptr || label->get_ancestor(GTK_TYPE_BUTTON) != except) {
            letters.insert(MnemonicOf(*label));
        }
    });
    letters.erase(0);
    return letters;
}

} // namespace

void ForEachWidget(Gtk::Widget& root, const std::function<void(Gtk::Widget&)>& function)
{
    function(root);
    if (auto* container = dynamic_cast<Gtk::Container*>(&root)) {
        container->forall([&function](Gtk::Widget& child) { ForEachWidget(child, function); });
    }
}

std::string ShownText(std::string_view text)
{
    constexpr std::size_t LongestWord = 255; // what every field for a name allows
    constexpr std::size_t LongestWhole = 4000;
    constexpr const char* Ellipsis = "…";
    std::string shown;
    while (!text.empty() && shown.size() < LongestWhole) {
        const std::string_view word = text.substr(0, text.find_first_of(" \n"));
        const std::string_view begin = Utf8FirstCharacters(word, LongestWord);
        shown.append(begin).append(begin.size() == word.size() ? "" : Ellipsis);
        text.remove_prefix(word.size());
        shown.append(text.substr(0, 1)); // what ends the word
        text.remove_prefix(std::min<std::size_t>(text.size(), 1));
    }
    return text.empty() ? shown : shown + Ellipsis;
}

void LocalizeTexts(const CFBundle& bundle, Gtk::Widget& root)
{
    ForEachWidget(root, [&bundle](Gtk::Widget& widget) { LocalizeWidget(bundle, widget); });
}

void NameForScreenReaders(Gtk::Widget& root)
{
    ForEachWidget(root, [](Gtk::Widget& widget) {
        auto* label = dynamic_cast<Gtk::Label*>(&widget);
        Gtk::Widget* labelled = label == nullptr ? nullptr : label->get_mnemonic_widget();
        if (labelled == nullptr || !OwnAccessibleName(*labelled).empty()) {
            return;
        }
        std::string name = label->get_text();
        if (name.ends_with(':')) {
            name.pop_back();
        }
        SetAccessibleName(*labelled, name);
    });
}

void AssignMnemonics(Gtk::Widget& root, std::set<gunichar>& taken)
{
    ForEachWidget(root, [&taken](Gtk::Widget& widget) { KeepMnemonic(widget, taken); });
    ForEachWidget(root, [&taken](Gtk::Widget& widget) { AddMnemonic(widget, taken); });
}

std::set<gunichar> MnemonicsOnScreen(Gtk::Widget& window)
{
    return MnemonicsOnScreen(window, nullptr);
}

void RelabelButton(Gtk::Button& button, const std::string& label)
{
    if (WithoutMark(button) != label) {
        button.set_use_underline(false);
        button.set_label(label);
    }
    if (button.get_mapped()) {
        std::set<gunichar> taken = MnemonicsOnScreen(*button.get_toplevel(), &button);
        AssignMnemonics(button, taken);
    }
}

} // namespace tarvo
