#include "panels/toolkit/Dialogs.h"

#include "panels/toolkit/Guarded.h"
#include "panels/toolkit/Nib.h"
#include "panels/toolkit/TextFilters.h"
#include "panels/toolkit/WidgetTexts.h"
#include "platform/bundle/CFBundle.h"

#include <gtkmm/entry.h>
#include <gtkmm/messagedialog.h>

#include <memory>

namespace tarvo {
namespace {

// Ends a window of a description once nobody but the toolkit holds it: its wrapper keeps a window
// that is destroyed, only hidden, for good.
gboolean EndWindow(gpointer data)
{
    auto* window = static_cast<GtkWidget*>(data);
    constexpr guint OursAndTheToolkits = 2;
    if (G_OBJECT(window)->ref_count > OursAndTheToolkits) {
        return G_SOURCE_CONTINUE;
    }
    const std::unique_ptr<Gtk::Window> owner(Glib::wrap(GTK_WINDOW(window)));
    g_object_unref(window);
    return G_SOURCE_REMOVE;
}

void EndWhenDropped(Gtk::Window& window)
{
    constexpr guint Milliseconds = 20;
    GtkWidget* const widget = GTK_WIDGET(window.gobj());
    if (Nib::IsOfDescription(window)) {
        g_timeout_add(Milliseconds, EndWindow, g_object_ref(widget));
    }
}

} // namespace

std::int32_t RunModalWindow(const CFBundle& bundle, Gtk::Dialog& dialog, Gtk::Window* parent)
{
    std::set<gunichar> taken;
    AssignMnemonics(dialog, taken);
    dialog.set_modal(true);
    dialog.set_position(Gtk::WIN_POS_CENTER_ON_PARENT);
    if (parent != nullptr) {
        dialog.set_transient_for(*parent);
        dialog.property_destroy_with_parent() = true;
    }
    if (dialog.get_title().empty()) {
        dialog.set_title(bundle.localizedString("PDE Shell"));
    }
    // A dialog of ours may be the parent. It is only hidden when the application ends it, since it
    // is held here.
    sigc::connection parentsEnd;
    if (parent != nullptr) {
        parentsEnd = parent->signal_hide().connect(
            Guarded([&dialog] { dialog.response(Gtk::RESPONSE_DELETE_EVENT); }));
    }
    const int response = dialog.run();
    parentsEnd.disconnect();
    gtk_widget_destroy(GTK_WIDGET(dialog.gobj()));
    EndWhenDropped(dialog);
    return response == Gtk::RESPONSE_OK ? DialogOk : DialogCancel;
}

void DisplayNotice(const CFBundle& bundle, Gtk::Window* parent, const char* headerKey,
                   const char* messageKey)
{
    Gtk::MessageDialog notice(bundle.localizedString(headerKey), false, Gtk::MESSAGE_WARNING,
                              Gtk::BUTTONS_NONE, true);
    notice.set_secondary_text(bundle.localizedString(messageKey));
    notice.add_button(bundle.localizedString("OK Command"), Gtk::RESPONSE_OK);
    notice.set_default_response(Gtk::RESPONSE_OK);
    RunModalWindow(bundle, notice, parent);
}

OSStatus RunModalCustomValueDialog(const CFBundle& bundle, Gtk::Window* parent, std::int32_t limit,
                                   std::optional<std::string>& text, std::int32_t& result)
{
    const std::string former = text.value_or("");
    text.reset();
    result = DialogCancel;
    auto nib = Nib::Open(bundle, "Utilities");
    if (!nib) {
        return StatusNoWindow;
    }
    const auto dialog = nib->window<Gtk::Dialog>("CustomValue");
    const auto field = nib->widget<Gtk::Entry>("TPDE123456");
    if (!nib->isComplete()) {
        return StatusNoWindow;
    }
    nib.reset();
    LimitInputLength(field.get(), limit);
    field->set_text(former);
    field->grab_focus();
    result = RunModalWindow(bundle, *dialog.get(), parent);
    if (result == DialogOk) {
        text = field->get_text();
    }
    return StatusOk;
}

} // namespace tarvo
