#include "panels/finishing/FinishedSetView.h"

#include "panels/finishing/SheetPicture.h"
#include "panels/toolkit/Guarded.h"
#include "platform/bundle/CFBundle.h"

#include <gtk/gtk.h>

namespace tarvo {

FinishedSetView::FinishedSetView(int width, int height) : width_(width)
{
    set_size_request(-1, height);
}

void FinishedSetView::get_preferred_width_vfunc(int& minimum, int& natural) const
{
    minimum = width_ * 3 / 4; // for large text beside it
    natural = width_;
}

void FinishedSetView::showSet(const FinishedSet& set, const CFBundle& bundle)
{
    set_ = set;
    AtkObject* accessible = gtk_widget_get_accessible(GTK_WIDGET(gobj()));
    atk_object_set_role(accessible, ATK_ROLE_IMAGE);
    atk_object_set_name(accessible, bundle.localizedString("FinishedSetPicture").c_str());
    atk_object_set_description(accessible, DescribeFinishedSet(set, bundle).c_str());
    queue_draw();
}

bool FinishedSetView::on_draw(const Cairo::RefPtr<Cairo::Context>& context)
{
    try {
        DrawFinishedSet(context, get_allocated_width(), get_allocated_height(), set_);
    } catch (...) { // GTK calls this without protection
        ReportCaughtException();
    }
    return false;
}

} // namespace tarvo
