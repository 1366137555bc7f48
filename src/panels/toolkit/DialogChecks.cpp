#include "panels/toolkit/DialogChecks.h"

#include "panels/toolkit/Dialogs.h"
#include "panels/toolkit/Guarded.h"
#include "panels/toolkit/TextFilters.h"
#include "panels/toolkit/WidgetTexts.h"
#include "platform/bundle/CFBundle.h"
#include "platform/text/WhiteSpace.h"

#include <gtkmm/box.h>
#include <gtkmm/label.h>
#include <gtkmm/messagedialog.h>

#include <cstdint>

namespace tarvo {

namespace {

// A name without a blank would make the window wider than the screen.
void WrapLongWords(Gtk::MessageDialog& window)
{
    for (Gtk::Widget* child : window.get_message_area()->get_children()) {
        if (auto* label = dynamic_cast<Gtk::Label*>(child)) {
            label->set_line_wrap_mode(Pango::WRAP_WORD_CHAR);
        }
    }
}

} // namespace

void AcceptOnlyIf(Gtk::Dialog& dialog, const std::function<bool()>& accept)
{
    GtkDialog* const window = dialog.gobj();
    // An exception is no consent: it gives false.
    const auto accepts = Guarded(accept);
    dialog.signal_response().connect(Guarded([window, accepts](int response) {
                                         if (response == Gtk::RESPONSE_OK && !accepts()) {
                                             g_signal_stop_emission_by_name(window, "response");
                                         }
                                     }),
                                     false); // before whoever waits for the answer
}

void RequireText(Gtk::Dialog& dialog, Gtk::Entry& field, std::size_t limit)
{
    Gtk::Dialog* const window = &dialog;
    Gtk::Entry* const entry = &field;
    const auto showState = [window, entry] {
        window->set_response_sensitive(Gtk::RESPONSE_OK, !Trimmed(entry->get_text().raw()).empty());
    };
    showState();
    LimitInputLength(&field, static_cast<std::int32_t>(limit),
                     [showState](const Event& /*event*/) { showState(); });
}

bool AskUser(const CFBundle& bundle, Gtk::Window* parent, const std::string& question,
             const char* yesKey, const char* noKey, const std::string& details)
{
    Gtk::MessageDialog window(ShownText(question), false, Gtk::MESSAGE_QUESTION, Gtk::BUTTONS_NONE,
                              true);
    window.set_secondary_text(ShownText(details));
    window.add_button(bundle.localizedString(noKey), Gtk::RESPONSE_CANCEL);
    window.add_button(bundle.localizedString(yesKey), Gtk::RESPONSE_OK);
    window.set_default_response(Gtk::RESPONSE_CANCEL);
    WrapLongWords(window);
    return RunModalWindow(bundle, window, parent) == DialogOk;
}

void TellUser(const CFBundle& bundle, Gtk::Window* parent, const char* headerKey,
              const std::string& message)
{
    Gtk::MessageDialog notice(bundle.localizedString(headerKey), false, Gtk::MESSAGE_WARNING,
                              Gtk::BUTTONS_NONE, true);
    notice.set_secondary_text(ShownText(message));
    notice.add_button(bundle.localizedString("OK Command"), Gtk::RESPONSE_OK);
    notice.set_default_response(Gtk::RESPONSE_OK);
    WrapLongWords(notice);
    RunModalWindow(bundle, notice, parent);
}

} // namespace tarvo
