#pragma once

#include "records/FinishedSet.h"

#include <gtkmm/drawingarea.h>

namespace tarvo {

class CFBundle;

/// Shows a finished set as the dialogs and the panel's preview have it, in the size that it is
/// given on a ground of any colour. A screen reader is told the same in words.
class FinishedSetView : public Gtk::DrawingArea {
public:
    /// @param width, height  that it asks for; it fills what it is given, which may be narrower
    FinishedSetView(int width, int height);

    /// Draws another set from now on.
    void showSet(const FinishedSet& set, const CFBundle& bundle);
    const FinishedSet& shown() const { return set_; }

protected:
    void get_preferred_width_vfunc(int& minimum, int& natural) const override;
    bool on_draw(const Cairo::RefPtr<Cairo::Context>& context) override;

private:
    int width_;
    FinishedSet set_;
};

} // namespace tarvo
