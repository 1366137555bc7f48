#include "panels/advanced/AdvancedPanel.h"

#include "panels/PanelEnvironment.h"
#include "panels/advanced/AdvancedSettings.h"
#include "panels/advanced/JobTicketFiles.h"
#include "panels/toolkit/ControlBindings.h"
#include "panels/toolkit/Guarded.h"
#include "panels/toolkit/Nib.h"
#include "panels/toolkit/TicketPanel.h"
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

class AdvancedPanel : public TicketPanel {
public:
    AdvancedPanel() : TicketPanel("Advanced", "AdvancedPanelProductionHLC") {}

private:
    OSStatus readTicket(const PMTicket& ticket) override
    {
        const OSStatus status = ReadAdvancedSettings(ticket, settings_);
        controls_.show();
        return status;
    }

    OSStatus writeTicket(PMTicket& ticket) override
    {
        WriteAdvancedSettings(settings_, ticket);
        return StatusOk;
    }

    void takeControls(Nib& nib) override
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
        MoveInto(pane(), content);
    }

    AdvancedSettings settings_;
    ControlBindings controls_;
};

} // namespace

std::unique_ptr<Panel> GetAdvancedPanelInterface()
{
    return std::make_unique<AdvancedPanel>();
}

} // namespace tarvo
