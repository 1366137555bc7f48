#include "panels/paper/ConflictNotice.h"

#include "panels/paper/PaperConflicts.h"
#include "panels/toolkit/Guarded.h"
#include "panels/toolkit/WidgetTexts.h"

#include <gtk/gtk.h>

#include <utility>

namespace tarvo {
namespace {

constexpr int Gap = 6;                // points
constexpr int CharactersInALine = 40; // the longest do not make the panel wider

// The label is another whenever its text or letter changes.
void WrapLabel(Gtk::Button& button)
{
    if (auto* label = dynamic_cast<Gtk::Label*>(button.get_child())) {
        label->set_line_wrap(true);
    }
}

} // namespace

ConflictNotice::ConflictNotice(Glib::RefPtr<Gtk::Box> place, const std::function<void()>& resolve)
    : place_(std::move(place)), line_(Gtk::ORIENTATION_HORIZONTAL, Gap)
{
    picture_.set_from_icon_name("dialog-warning-symbolic", Gtk::ICON_SIZE_MENU);
    picture_.set_valign(Gtk::ALIGN_START);
    text_.set_line_wrap(true);
    text_.set_max_width_chars(CharactersInALine);
    text_.set_xalign(0);
    text_.set_hexpand(true);
    remedy_.set_halign(Gtk::ALIGN_START);
    for (const char* property : {"label", "use-underline"}) {
        remedy_.connect_property_changed(property, Guarded([this] { WrapLabel(remedy_); }));
    }
    remedy_.signal_clicked().connect(Guarded(resolve));
    line_.add(picture_);
    line_.add(text_);
    place_->set_spacing(Gap);
    place_->add(line_);
    place_->add(remedy_);
    line_.show_all_children();
    // Told by a screen reader when it comes up.
    atk_object_set_role(gtk_widget_get_accessible(GTK_WIDGET(place_->gobj())),
                        ATK_ROLE_NOTIFICATION);
    show(nullptr);
}

void ConflictNotice::show(const PaperConflict* conflict)
{
    for (Gtk::Widget* widget :
         {static_cast<Gtk::Widget*>(place_.get()), static_cast<Gtk::Widget*>(&line_),
          static_cast<Gtk::Widget*>(&remedy_)}) {
        widget->set_visible(conflict != nullptr);
    }
    if (conflict != nullptr) {
        text_.set_text(conflict->text);
        RelabelButton(remedy_, conflict->remedy);
    }
}

} // namespace tarvo
