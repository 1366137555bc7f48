#include "host/DialogSettings.h"

#include <gtk/gtk.h>

#include <algorithm>
#include <cmath>

namespace tarvo {
namespace {

bool HasChoice(const PPDOption& option, const std::string& keyword)
{
    return std::any_of(option.choices.begin(), option.choices.end(),
                       [&](const PPDChoice& choice) { return choice.keyword == keyword; });
}

} // namespace

PageFormat PageFormatOf(GtkPageSetup* setup)
{
    PageFormat format;
    format.orientation = static_cast<PageOrientation>(gtk_page_setup_get_orientation(setup));
    format.width =
        static_cast<float>(std::round(gtk_page_setup_get_paper_width(setup, GTK_UNIT_POINTS)));
    format.length =
        static_cast<float>(std::round(gtk_page_setup_get_paper_height(setup, GTK_UNIT_POINTS)));
    return format;
}

CFDictionary ChoicesOf(GtkPrintSettings* settings, const PPDFile& ppd)
{
    CFDictionary choices;
    for (const PPDOption* option : ppd.options()) {
        const char* choice = gtk_print_settings_get(settings, ("cups-" + option->keyword).c_str());
        if (choice != nullptr && HasChoice(*option, choice)) {
            choices.set(option->keyword, choice);
        }
    }
    return choices;
}

void TakeChanges(const CFDictionary& before, const CFDictionary& now, CFDictionary& choices)
{
    for (const auto& [keyword, choice] : now) {
        const CFPropertyList* former = before.find(keyword);
        if (former == nullptr || *former != choice) {
            choices.set(keyword, choice);
        }
    }
}

} // namespace tarvo
