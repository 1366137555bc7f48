#pragma once

#include "panels/Panel.h"

#include <memory>

namespace tarvo {

/// Booklet layout order, rotation, whether the ticket goes with the job; import and export of job
/// tickets.
std::unique_ptr<Panel> GetAdvancedPanelInterface();

} // namespace tarvo
