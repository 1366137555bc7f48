// The print features with one panel more, which makes every job a secure one: its passcode is what
// the user types there.
#include "panels/PanelEnvironment.h"
#include "panels/about/AboutPanel.h"
#include "panels/advanced/AdvancedPanel.h"
#include "records/JobTypeKeys.h"
#include "settings/TicketAccess.h"
#include "settings/TicketKeys.h"
#include "shell/PanelTable.h"

#include <gtkmm/entry.h>

namespace tarvo {
namespace {

class SecureJobPanel : public Panel {
public:
    OSStatus prologue(PanelDescription& description) override
    {
        description = {"Secure Job", UserOptionKind};
        return StatusOk;
    }

    OSStatus initialize(Gtk::Container& pane, PMPrintSession* /*session*/) override
    {
        pane_ = &pane;
        jobType_.set(JobTypeNumberKey, static_cast<std::int32_t>(JobType::SecurePrint));
        return StatusOk;
    }

    OSStatus sync(PMPrintSession* session, SyncDirection direction) override
    {
        PMTicket* ticket = nullptr;
        const OSStatus status = GetTicketFromSession(session, JobTicketName, &ticket);
        if (ticket != nullptr && direction == SyncDirection::ToTicket) {
            ticket->setItem(PanelClient, JobTypeKey, jobType_);
        }
        return status;
    }

    OSStatus open() override
    {
        passcode_.get_accessible()->set_name("Passcode");
        passcode_.signal_changed().connect(
            [this] { jobType_.set(SecurePrintPasswordKey, passcode_.get_text().raw()); });
        passcode_.show();
        pane_->add(passcode_);
        return StatusOk;
    }

    const CFDictionary* jobType() const override { return &jobType_; }

private:
    Gtk::Entry passcode_;
    CFDictionary jobType_;
    Gtk::Container* pane_ = nullptr;
};

std::unique_ptr<Panel> GetSecureJobPanelInterface()
{
    return std::make_unique<SecureJobPanel>();
}

} // namespace

// In place of the one in the library.
const PanelGetter PanelMap[] = {
    GetSecureJobPanelInterface,
    GetAdvancedPanelInterface,
    GetAboutPanelInterface,
    nullptr,
};

} // namespace tarvo
