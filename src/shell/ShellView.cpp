#include "shell/ShellView.h"

#include "panels/toolkit/Guarded.h"
#include "panels/toolkit/Nib.h"
#include "panels/toolkit/Pictures.h"
#include "panels/toolkit/PopupButton.h"
#include "panels/toolkit/WidgetTexts.h"
#include "settings/SettingMap.h"
#include "shell/ShellCommands.h"

#include <gtk/gtk.h>
#include <gtkmm/button.h>
#include <gtkmm/cellrenderertext.h>
#include <gtkmm/image.h>

namespace tarvo {
namespace {

// Keys that stand for a command; 0 ends the table.
struct KeyRow {
    guint key;
    guint modifiers;
    std::uint32_t command;
};

constexpr guint Alt = GDK_MOD1_MASK;

constexpr KeyRow KeyMap[] = {
    {GDK_KEY_F1,           0,   HelpCommand         },
    {GDK_KEY_Page_Down,    Alt, NextPanelCommand    },
    {GDK_KEY_KP_Page_Down, Alt, NextPanelCommand    },
    {GDK_KEY_Page_Up,      Alt, PreviousPanelCommand},
    {GDK_KEY_KP_Page_Up,   Alt, PreviousPanelCommand},
    {0,                    0,   0                   },
};

std::uint32_t CommandOfKey(const GdkEventKey& event)
{
    const auto mask = static_cast<guint>(gtk_accelerator_get_default_mod_mask());
    const guint modifiers = event.state & mask;
    const auto isKey = [&](const KeyRow& row) {
        return row.key == event.keyval && row.modifiers == modifiers;
    };
    const KeyRow* row = KeyMap;
    while (row->key != 0 && !isKey(*row)) {
        ++row;
    }
    return row->command;
}

// An arrow without its picture would be an empty button.
void ShowArrow(const CFBundle& bundle, Nib& nib, const char* imageName, const char* picture,
               const Glib::RefPtr<Gtk::Widget>& button)
{
    const auto image = nib.widget<Gtk::Image>(imageName);
    if (image && button && !ShowPicture(bundle, *image.get(), picture)) {
        button->set_no_show_all(true);
        button->hide();
    }
}

void ConnectButton(const Glib::RefPtr<Gtk::Widget>& widget, const ShellViewHandlers& handlers,
                   std::int32_t control)
{
    if (auto* button = dynamic_cast<Gtk::Button*>(widget.get())) {
        button->signal_clicked().connect(
            Guarded([hit = handlers.controlHit, control] { hit(control); }));
    }
}

// What the panel is called is not cut short.
void ShowWhole(Gtk::ComboBox& button)
{
    for (Gtk::CellRenderer* cell : button.get_cells()) {
        if (auto* text = dynamic_cast<Gtk::CellRendererText*>(cell)) {
            text->property_ellipsize() = Pango::ELLIPSIZE_NONE;
        }
    }
}

} // namespace

std::unique_ptr<ShellView> ShellView::Load(const CFBundle& bundle, std::string& failedStep)
{
    auto nib = Nib::Open(bundle, "PDE_Shell");
    if (!nib) {
        failedStep = "CreateNibReferenceWithCFBundle";
        return nullptr;
    }
    auto view = std::make_unique<ShellView>();
    const auto window = nib->window<Gtk::Widget>("Window");
    view->content_ = nib->widget<Gtk::Widget>("Tshl10");
    view->switchGroup_ = nib->widget<Gtk::Widget>("Tshl15");
    view->popup_ = nib->widget<Gtk::ComboBox>("Tshl16");
    view->container_ = nib->widget<Gtk::Container>("Tshl17");
    view->previous_ = nib->widget<Gtk::Widget>("Tshl1966");
    view->next_ = nib->widget<Gtk::Widget>("Tshl1967");
    view->help_ = nib->widget<Gtk::Widget>("Tshl1968");
    ShowArrow(bundle, *nib, "Tshl2966", "MacUp.png", view->previous_);
    ShowArrow(bundle, *nib, "Tshl2967", "MacDown.png", view->next_);
    if (!nib->isComplete()) {
        failedStep = "CreateWindowFromNib";
        return nullptr;
    }
    RemoveFromParent(view->content_);
    return view;
}

ShellView::~ShellView()
{
    if (content_) {
        gtk_widget_destroy(content_->gobj());
    }
}

void ShellView::embed(GtkContainer* parentPane)
{
    if (content_->get_parent() == nullptr) {
        gtk_container_add(parentPane, content_->gobj());
        gtk_widget_show(GTK_WIDGET(parentPane));
    }
}

void ShellView::connect(const Menu& panels, const ShellViewHandlers& handlers)
{
    lettersOutside_ = MnemonicsOnScreen(*content_->get_toplevel());
    AssignMnemonics(*content_.get(), lettersOutside_);
    PopulatePopupButton(*popup_.get(), panels);
    ShowWhole(*popup_.get());
    popup_->signal_changed().connect(
        Guarded([hit = handlers.controlHit] { hit(PanelPopupControl); }));
    ConnectButton(previous_, handlers, PreviousPanelControl);
    ConnectButton(next_, handlers, NextPanelControl);
    ConnectButton(help_, handlers, HelpControl);
    content_->signal_key_press_event().connect(
        Guarded([process = handlers.commandProcess](GdkEventKey* event) {
            const std::uint32_t command = CommandOfKey(*event);
            if (command != 0) {
                process(command);
            }
            return command != 0;
        }),
        false);
}

void ShellView::setPopupValue(std::int32_t tabIndex)
{
    SetPopupButtonToTicketValue(popup_.get(), tabIndex);
}

std::int32_t ShellView::popupValue(std::int32_t otherwise) const
{
    return GetPopupButtonTicketValue(*popup_.get(), otherwise);
}

void ShellView::setSwitchGroupVisible(bool isVisible)
{
    switchGroup_->set_visible(isVisible);
}

void ShellView::assignMnemonics(Gtk::Widget& pane) const
{
    std::set<gunichar> taken = lettersOutside_;
    AssignMnemonics(pane, taken);
}

} // namespace tarvo
