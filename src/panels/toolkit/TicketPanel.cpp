#include "panels/toolkit/TicketPanel.h"

#include "panels/PanelEnvironment.h"
#include "panels/toolkit/Nib.h"
#include "settings/TicketAccess.h"

namespace tarvo {

OSStatus TicketPanel::prologue(PanelDescription& description)
{
    const CFBundle* bundle = GetPDEBundle();
    if (bundle == nullptr) {
        return StatusNullContext;
    }
    description = {bundle->localizedString(titleKey_), UserOptionKind};
    return StatusOk;
}

OSStatus TicketPanel::initialize(Gtk::Container& pane, PMPrintSession* session)
{
    if (session == nullptr) {
        return StatusNullContext;
    }
    pane_ = &pane;
    return sync(session, SyncDirection::FromTicket);
}

OSStatus TicketPanel::sync(PMPrintSession* session, SyncDirection direction)
{
    if (session == nullptr) {
        return StatusNoSession;
    }
    PMTicket* ticket = nullptr;
    const OSStatus status = GetTicketFromSession(session, JobTicketName, &ticket);
    if (ticket == nullptr) {
        return status == StatusOk ? StatusItemNotFound : status;
    }
    return direction == SyncDirection::ToTicket ? writeTicket(*ticket) : readTicket(*ticket);
}

OSStatus TicketPanel::open()
{
    if (isOpened_) {
        return StatusNullContext;
    }
    isOpened_ = true;
    if (auto nib = Nib::Open(*GetPDEBundle(), nibName_)) {
        takeControls(*nib);
    }
    return StatusOk; // a panel without a description is empty
}

} // namespace tarvo
