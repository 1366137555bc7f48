#include "shell/PanelTable.h"

#include "panels/about/AboutPanel.h"
#include "panels/advanced/AdvancedPanel.h"

namespace tarvo {

const PanelGetter PanelMap[] = {
    GetAdvancedPanelInterface,
    GetAboutPanelInterface,
    nullptr,
};

} // namespace tarvo
