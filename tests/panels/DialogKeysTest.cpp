// The dialogs of the Paper/Output panel for somebody without a mouse.
#include "panels/finishing/FinishingDialogs.h"
#include "panels/paper/BackgroundFormsDialog.h"
#include "panels/paper/SaveJobAsDialog.h"
#include "records/BackgroundFormsOptions.h"
#include "support/BuiltBundle.h"
#include "support/DialogScript.h"
#include "support/FinishedSets.h"

#include <gtkmm/entry.h>
#include <gtkmm/radiobutton.h>
#include <gtkmm/spinbutton.h>
#include <gtkmm/togglebutton.h>

namespace tarvo {
namespace {

// Show a dialog; true when it gives something to be stored.
bool GivesFinishing(std::int32_t option)
{
    return RunFinishingDialog(nullptr, BuiltBundle(), option, FinishedSet(), AllFinishingOffers)
        .has_value();
}
bool GivesOffset(std::int32_t /*unused*/)
{
    return RunOffsetSetupDialog(nullptr, BuiltBundle(), FinishedSet(), {}).has_value();
}
bool GivesJobType(std::int32_t type)
{
    return RunSaveJobAsDialog(nullptr, BuiltBundle(), {.type = type}).has_value();
}
bool GivesForms(std::int32_t /*unused*/)
{
    return RunBackgroundFormsDialog(nullptr, BuiltBundle(), BackgroundFormsOptions()).has_value();
}

struct EscapeCase {
    const char* name;
    bool (*gives)(std::int32_t);
    std::int32_t which;
    const char* window;
    const char* control; // is changed; "" for the last radio button
};

constexpr EscapeCase EscapeCases[] = {
    {"position",         GivesFinishing, 4,  "OneStaple",            ""          },
    {"holes",            GivesFinishing, 30, "HolePunch",            "TPDE903"   },
    {"combination",      GivesFinishing, 49, "MultipleFinishing",    "TPDE1007"  },
    {"custom finishing", GivesFinishing, 22, "CustomValue",          "TPDE123456"},
    {"offset",           GivesOffset,    0,  "OffsetSetup",          "TPDE1108"  },
    {"saved job",        GivesJobType,   3,  "SaveJobAs",            "TPDE1"     },
    {"secure job",       GivesJobType,   6,  "SaveJobAs",            "TPDE5"     },
    {"delayed job",      GivesJobType,   7,  "SaveJobAs",            "TPDE8"     },
    {"forms",            GivesForms,     0,  "BackgroundFormsSetup", "TPDE3"     },
};

void Change(Gtk::Dialog& dialog, const std::string& name)
{
    auto* widget = name.empty() ? AllOf<Gtk::RadioButton>(dialog).back()
                                : FindWidget<Gtk::Widget>(dialog, name);
    if (auto* button = dynamic_cast<Gtk::ToggleButton*>(widget)) {
        button->set_active(!button->get_active());
    } else if (auto* menu = dynamic_cast<Gtk::ComboBox*>(widget)) {
        menu->set_active(2);
    } else {
        TabTo(dialog, widget);
        TypeText(dialog, "12");
        EXPECT_EQ(dynamic_cast<Gtk::Entry*>(widget)->get_text(), "12");
    }
}

TEST(DialogKeys, EscapeLeavesEverythingAsItWas)
{
    for (const auto& row : EscapeCases) {
        SCOPED_TRACE(row.name);
        const DialogScript user(row.window, [&row](Gtk::Dialog& dialog) {
            Change(dialog, row.control);
            PressKey(dialog, GDK_KEY_Escape);
        });
        EXPECT_FALSE(row.gives(row.which));
    }
}

TEST(DialogKeys, AJobIsSavedWithoutAMouse)
{
    const DialogScript user("SaveJobAs", [](Gtk::Dialog& dialog) {
        TabTo(dialog, FindWidget<Gtk::Widget>(dialog, "TPDE1"));
        PressKey(dialog, GDK_KEY_space); // off: with a name of its own
        TabTo(dialog, FindWidget<Gtk::Widget>(dialog, "TPDE2"));
        TypeText(dialog, "Draft 2");
        TabTo(dialog, FindWidget<Gtk::Widget>(dialog, "TPDE4"));
        PressKey(dialog, GDK_KEY_Down);
        TabTo(dialog, dialog.get_widget_for_response(Gtk::RESPONSE_OK));
        PressKey(dialog, GDK_KEY_Return);
    });
    JobTypeDetails expected = {.type = 3, .usesJobName = true};
    const auto details = RunSaveJobAsDialog(nullptr, BuiltBundle(), expected);
    ASSERT_TRUE(details);
    expected.usesJobName = false;
    expected.savedName = "Draft 2";
    expected.saveFormat = 3;
    expected.printTime = details->printTime;
    EXPECT_EQ(*details, expected);
}

TEST(DialogKeys, AFormIsMergedWithoutAMouse)
{
    BackgroundFormsOptions options;
    options.setInches(false);
    const DialogScript user("BackgroundFormsSetup", [](Gtk::Dialog& dialog) {
        TabTo(dialog, FindWidget<Gtk::Widget>(dialog, "TPDE1"));
        PressKey(dialog, GDK_KEY_Down);
        for (const auto& [field, text] : {
                 std::pair("TPDE4", "Logo"), {"TPDE5", "7"   },
                   {"TPDE8", "-3.5"}
        }) {
            TabTo(dialog, FindWidget<Gtk::Widget>(dialog, field));
            TypeText(dialog, text);
        }
        PressKey(dialog, GDK_KEY_Return);
    });
    BackgroundFormsChoice expected = ChoiceFromBackgroundForms(options);
    expected.mergesWithForm = true;
    expected.existingForm = "Logo";
    expected.cyclePages = 7;
    expected.xOffset = -35;
    EXPECT_EQ(RunBackgroundFormsDialog(nullptr, BuiltBundle(), options), expected);
}

} // namespace
} // namespace tarvo
