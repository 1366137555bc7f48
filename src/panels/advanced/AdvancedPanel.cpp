#include "panels/advanced/AdvancedPanel.h"

#include "panels/PanelEnvironment.h"
#include "panels/advanced/AdvancedSettings.h"
#include "panels/advanced/JobTicketFiles.h"
#include "panels/toolkit/ControlBindings.h"
#include "panels/toolkit/Guarded.h"
#include "panels/toolkit/Nib.h"
#include "settings/AdvancedMaps.h"
#include "settings/SettingMenu.h"
#include "settings/TicketAccess.h"

#include <gtkmm/button.h>

namespace tarvo {
namespace {

Menu MenuFromMap(const CFBundle& bundle, const SettingMap* map)
{
    Menu menu;
    PopulateMenuFromMap(bundle, menu, map, JobContext::Job);
    return menu;
}

class AdvancedPanel : public Panel {
public:
    OSStatus prologue(PanelDescription& description) override
    {
        const CFBundle* bundle = GetPDEBundle();
        if (bundle == nullptr) {
            return StatusNullContext;
        }
        description = {bundle->localizedString("Advanced"), UserOptionKind};
        return StatusOk;
    }

    OSStatus initialize(Gtk::Container& pane, PMPrintSession* session) override
    {
        if (session == nullptr) {
            return StatusNullContext;
        }
        pane_ = &pane;
        return sync(session, SyncDirection::FromTicket);
    }

    OSStatus sync(PMPrintSession* session, SyncDirection direction) override
    {
        if (session == nullptr) {
            return StatusNoSession;
        }
        PMTicket* ticket = nullptr;
        const OSStatus status = GetTicketFromSession(session, JobTicketName, &ticket);
        if (ticket == nullptr) {
            return status == StatusOk ? StatusItemNotFound : status;
        }
        if (direction == SyncDirection::ToTicket) {
            WriteAdvancedSettings(settings_, *ticket);
            return status;
        }
        const OSStatus readStatus = ReadAdvancedSettings(*ticket, settings_);
        controls_.show();
        return readStatus;
    }

    // The controls are made once; closing leaves them in the pane.
    OSStatus open() override
    {
        if (isOpened_) {
            return StatusNullContext;
        }
        isOpened_ = true;
        if (auto nib = Nib::Open(*GetPDEBundle(), "AdvancedPanelProductionHLC")) {
            takeControls(*nib);
        }
        return StatusOk; // a panel without a description is empty
    }

private:
    void takeControls(Nib& nib)
    {
        const auto window = nib.window<Gtk::Widget>("Advanced");
        const auto content = nib.widget<Gtk::Widget>("Tshl600");
        const auto layoutOrder = nib.widget<Gtk::ComboBox>("Tshl611");
        const auto rotation = nib.widget<Gtk::ComboBox>("Tshl621");
        const auto emitTicket = nib.widget<Gtk::ToggleButton>("Tshl630");
        const auto importButton = nib.widget<Gtk::Button>("Tshl651");
        const auto exportButton = nib.widget<Gtk::Button>("Tshl652");
        if (!nib.isComplete()) {
            return;
        }
        const CFBundle& bundle = *GetPDEBundle();
        controls_.bindPopup(layoutOrder, MenuFromMap(bundle, BookletLayoutOrderMap),
                            settings_.bookletLayoutOrder);
        controls_.bindPopup(rotation, MenuFromMap(bundle, RotateImageMap), settings_.rotateImage);
        controls_.bindCheckBox(emitTicket, settings_.emitJobTicket);
        controls_.show();
        importButton->signal_clicked().connect(Guarded([] { RunModalTPIFImportDialog(); }));
        exportButton->signal_clicked().connect(Guarded([] { RunModalTPIFExportDialog(); }));
        MoveInto(*pane_, content);
    }

    AdvancedSettings settings_;
    ControlBindings controls_;
    Gtk::Container* pane_ = nullptr;
    bool isOpened_ = false;
};

} // namespace

std::unique_ptr<Panel> GetAdvancedPanelInterface()
{
    return std::make_unique<AdvancedPanel>();
}

} // namespace tarvo
