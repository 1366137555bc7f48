#include "panels/toolkit/WidgetTexts.h"

#include "support/EchoBundle.h"
#include "support/Widgets.h"

#include <gmock/gmock.h>
#include <gtkmm/box.h>
#include <gtkmm/button.h>
#include <gtkmm/checkbutton.h>
#include <gtkmm/entry.h>

namespace tarvo {
namespace {

// Labels of buttons as they become, with "_" before the underlined letter.
std::vector<std::string> Marked(const std::vector<std::string>& labels, std::set<gunichar> taken)
{
    Gtk::Box box;
    for (const std::string& label : labels) {
        box.add(*Gtk::manage(new Gtk::Button(label)));
    }
    AssignMnemonics(box, taken);
    std::vector<std::string> marked;
    for (Gtk::Widget* child : box.get_children()) {
        marked.push_back(dynamic_cast<Gtk::Button*>(child)->get_label());
    }
    return marked;
}

TEST(Mnemonics, AreLettersOfTheirOwn)
{
    using Labels = std::vector<std::string>;
    // name, labels, taken, labels with marks
    const std::tuple<const char*, Labels, std::set<gunichar>, Labels> cases[] = {
        {"first letter",             {"Import", "Export"},  {},         {"_Import", "_Export"} },
        {"first of the next word",   {"Edit", "Edit Name"}, {},         {"_Edit", "Edit _Name"}},
        {"then inside a word",       {"Edit", "Ends"},      {},         {"_Edit", "E_nds"}     },
        {"in either case",           {"edit", "Ends"},      {'d'},      {"_edit", "E_nds"}     },
        {"taken outside",            {"Print"},             {'p', 'r'}, {"Pr_int"}             },
        {"beyond ASCII",             {"Über", "über"},    {},         {"_Über", "ü_ber"}   },
        {"underline of the text",    {"a_b"},               {'a'},      {"a___b"}              },
        {"no letter is left",        {"I", "I"},            {},         {"_I", "I"}            },
        {"punctuation is no letter", {"… (1)"},           {},         {"… (_1)"}           },
    };
    for (const auto& [name, labels, taken, marked] : cases) {
        EXPECT_EQ(Marked(labels, taken), marked) << name;
    }
}

// What Alt goes with to press the button; 0 for nothing.
char LetterOf(const Gtk::Button& button)
{
    const auto* label = dynamic_cast<const Gtk::Label*>(button.get_child());
    const guint key = gtk_label_get_mnemonic_keyval(const_cast<GtkLabel*>(label->gobj()));
    return key == GDK_KEY_VoidSymbol ? '\0' : static_cast<char>(key);
}

TEST(Mnemonics, StayOfTheirOwnWhenButtonsComeAndChange)
{
    Gtk::Window window;
    Gtk::Box box;
    Gtk::Button setup("Setup");
    Gtk::Button remedy("Use");
    window.add(box);
    box.add(setup);
    box.add(remedy);
    std::set<gunichar> taken;
    AssignMnemonics(box, taken);
    window.show_all();
    EXPECT_EQ(LetterOf(remedy), 'u');
    std::set<gunichar> again;
    AssignMnemonics(box, again);
    RelabelButton(remedy, "Use");
    EXPECT_EQ(LetterOf(setup), 's') << "nothing has changed";
    EXPECT_EQ(LetterOf(remedy), 'u') << "nothing has changed";
    remedy.hide();
    RelabelButton(setup, "Undo");
    EXPECT_EQ(LetterOf(setup), 'u') << "what is hidden has no use for it";
    remedy.show();
    RelabelButton(remedy, "Use");
    EXPECT_EQ(LetterOf(remedy), 's') << "the letter is another's now";
    RelabelButton(setup, "Undo");
    EXPECT_EQ(LetterOf(setup), 'u') << "its own letter is free for it";

    box.hide();
    RelabelButton(setup, "Save");
    std::set<gunichar> outside = {'a'};
    AssignMnemonics(box, outside);
    EXPECT_EQ(LetterOf(remedy), 's');
    EXPECT_EQ(LetterOf(setup), 'v');
}

TEST(WidgetTexts, AreCutWhereTheyWouldStopTheToolkit)
{
    const std::string longest(255, 'x');
    const std::string usual = "Delete “" + longest.substr(10) + "”?\nIt is\n\nin use. ";
    EXPECT_EQ(ShownText(usual), usual);
    EXPECT_EQ(ShownText("a " + longest + "xx b"), "a " + longest + "… b");
    EXPECT_EQ(ShownText(longest + "\n" + longest + "x"), longest + "\n" + longest + "…");
    const std::string many = ShownText(std::string(100'000, ' '));
    EXPECT_LT(many.size(), 5'000U);
    EXPECT_TRUE(many.ends_with("…"));
}

TEST(WidgetTexts, AreLocalizedAndRead)
{
    const CFBundle bundle = EchoBundle({"Name:", "Send", "Tip", "Title"});
    Gtk::Window window;
    Gtk::Box box;
    Gtk::Label label("Name:");
    Gtk::Label empty;
    Gtk::Entry field;
    Gtk::CheckButton button("Send");
    window.set_title("Title");
    field.set_tooltip_text("Tip");
    label.set_mnemonic_widget(field);
    window.add(box);
    for (Gtk::Widget* widget :
         std::initializer_list<Gtk::Widget*>{&label, &empty, &field, &button}) {
        box.add(*widget);
    }
    LocalizeTexts(bundle, window);
    EXPECT_EQ(window.get_title(), "<Title>");
    EXPECT_EQ(label.get_text(), "<Name:>");
    EXPECT_EQ(empty.get_text(), "");
    EXPECT_EQ(button.get_label(), "<Send>") << "once, not its label again";
    EXPECT_EQ(field.get_tooltip_text(), "<Tip>");
    label.set_text("Name:");
    NameForScreenReaders(window);
    EXPECT_EQ(field.get_accessible()->get_name(), "Name");
}

} // namespace
} // namespace tarvo
