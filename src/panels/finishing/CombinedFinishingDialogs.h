#pragma once

#include "panels/finishing/FinishingDialogs.h"

namespace tarvo {

/// Dialogs with several pop-up buttons beside one picture; see RunFinishingDialog.
std::optional<FinishingChoice> RunHolePunchDialog(Gtk::Window* parent, const CFBundle& bundle,
                                                  const FinishedSet& current,
                                                  const std::vector<FinishingOffer>& offers);
std::optional<FinishingChoice>
RunMultipleFinishingDialog(Gtk::Window* parent, const CFBundle& bundle, const FinishedSet& current,
                           const std::vector<FinishingOffer>& offers);

} // namespace tarvo
