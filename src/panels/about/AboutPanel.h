#pragma once

#include "panels/Panel.h"

#include <memory>

namespace tarvo {

/// What this software is, and a link to its maker.
std::unique_ptr<Panel> GetAboutPanelInterface();

} // namespace tarvo
