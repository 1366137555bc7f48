#pragma once

#include "panels/Panel.h"

#include <memory>

namespace tarvo {

/// Job type, paper, sides, finishing and output: the job's production choices.
std::unique_ptr<Panel> GetPaperOutputPanelInterface();

} // namespace tarvo
