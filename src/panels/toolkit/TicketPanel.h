#pragma once

#include "panels/Panel.h"

namespace tarvo {

class Nib;
class PMTicket;

/// A panel whose values are of the job ticket, with controls that are made once.
class TicketPanel : public Panel {
public:
    OSStatus prologue(PanelDescription& description) final;
    OSStatus initialize(Gtk::Container& pane, PMPrintSession* session) final;
    OSStatus sync(PMPrintSession* session, SyncDirection direction) final;
    /// Closing leaves the controls in the pane.
    /// @return StatusNullContext from the second time on
    OSStatus open() final;

protected:
    /// @param titleKey  the text in the pop-up menu of panels
    /// @param nibName   the dialog description of the controls
    TicketPanel(const char* titleKey, const char* nibName) : titleKey_(titleKey), nibName_(nibName)
    {
    }

    /// Where the controls go.
    Gtk::Container& pane() const { return *pane_; }

private:
    /// Both also bring the controls up to date, if there are any yet.
    /// @return the result of sync
    virtual OSStatus readTicket(const PMTicket& ticket) = 0;
    virtual OSStatus writeTicket(PMTicket& ticket) = 0;
    /// Takes the controls, shows the values in them and moves them into the pane; does nothing when
    /// the description lacks one.
    virtual void takeControls(Nib& nib) = 0;

    const char* titleKey_;
    const char* nibName_;
    Gtk::Container* pane_ = nullptr;
    bool isOpened_ = false;
};

} // namespace tarvo
