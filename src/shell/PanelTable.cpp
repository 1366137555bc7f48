#include "shell/PanelTable.h"

#include "panels/about/AboutPanel.h"
#include "panels/advanced/AdvancedPanel.h"
#include "panels/paper/PaperOutputPanel.h"

namespace tarvo {

const PanelGetter PanelMap[] = {
    GetPaperOutputPanelInterface,
    GetAdvancedPanelInterface,
    GetAboutPanelInterface,
    nullptr,
};

} // namespace tarvo
