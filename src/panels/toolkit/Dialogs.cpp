#include "panels/toolkit/Dialogs.h"

#include "panels/PanelEnvironment.h"
#include "panels/toolkit/DialogChecks.h"
#include "panels/toolkit/Guarded.h"
#include "panels/toolkit/Nib.h"
#include "panels/toolkit/TextFilters.h"
#include "panels/toolkit/WidgetTexts.h"
#include "platform/bundle/CFBundle.h"

#include <gtkmm/entry.h>
#include <gtkmm/spinbutton.h>

namespace tarvo {
namespace {

// Alt and a letter press OK without leaving the field that is being typed into.
void TakeNumberBeingTyped(Gtk::Dialog& dialog)
{
    if (auto* field = dynamic_cast<Gtk::SpinButton*>(dialog.get_focus())) {
        field->update();
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
    dialog.signal_response().connect(
        Guarded([window = &dialog](int) { TakeNumberBeingTyped(*window); }), false);
    const DialogHandle printDialog;
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
    return printDialog.restore() && response == Gtk::RESPONSE_OK ? DialogOk : DialogCancel;
}

void DisplayNotice(const CFBundle& bundle, Gtk::Window* parent, const char* headerKey,
                   const char* messageKey)
{
    TellUser(bundle, parent, headerKey, bundle.localizedString(messageKey));
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
    std::string entered;
    dialog->signal_response().connect(
        Guarded([control = field.get(), &entered](int) { entered = control->get_text(); }));
    result = RunModalWindow(bundle, *dialog.get(), parent);
    if (result == DialogOk) {
        text = entered;
    }
    return StatusOk;
}

} // namespace tarvo
