#include "panels/PanelEnvironment.h"

namespace tarvo {

PanelEnvironment& ThePanelEnvironment()
{
    static PanelEnvironment environment;
    return environment;
}

const CFBundle* GetPDEBundle()
{
    return ThePanelEnvironment().bundle;
}

PMPrintSession* GetCurrentPrintSession()
{
    return ThePanelEnvironment().session;
}

Gtk::Window* GetPDEWindow()
{
    const auto window = ThePanelEnvironment().window;
    return window ? window() : nullptr;
}

OSStatus PDESync(PMPrintSession* /*session*/, SyncDirection direction)
{
    const auto sync = ThePanelEnvironment().sync; // a copy: the dialog may end meanwhile
    return sync ? sync(direction) : StatusNoSession;
}

bool DialogHandle::restore() const
{
    const PanelEnvironment& environment = ThePanelEnvironment();
    if (environment.dialog == dialog_) {
        return true;
    }
    const auto makeCurrent = environment.makeCurrent; // a copy: it replaces the environment's
    return makeCurrent && makeCurrent(dialog_);
}

} // namespace tarvo
