#pragma once

#include "printer/FinishingOffers.h"
#include "records/FinishedSet.h"

#include <gtkmm/window.h>

#include <cstdint>
#include <optional>
#include <vector>

namespace tarvo {

class CFBundle;

// Each of these shows a modal dialog and gives what the user chose, or nothing when the user
// cancels, there is nothing to choose or the bundle lacks the dialog. The application may end the
// parent meanwhile.

/// Lets the user choose within a family of the finishing menu; the pictures show the job's paper.
/// @param option  the value of the menu's item; of a family that HasFinishingDialog
/// @return the job's finishing with the family in place of its own
std::optional<FinishingChoice> RunFinishingDialog(Gtk::Window* parent, const CFBundle& bundle,
                                                  std::int32_t option, const FinishedSet& current,
                                                  const std::vector<FinishingOffer>& offers);

/// What of the offset dialog the printer can do; the dialog leaves out the rest.
struct OffsetOffers {
    bool offset = true;
    bool slipSheets = true;
};

/// Lets the user choose offset, subsets and slip sheets.
/// @return the job's finishing with them
std::optional<FinishingChoice> RunOffsetSetupDialog(Gtk::Window* parent, const CFBundle& bundle,
                                                    const FinishedSet& current,
                                                    const OffsetOffers& offers);

/// Lets the user choose how a booklet is folded.
/// @param offersNone  also neither folding nor stapling, as for a booklet layout without a finisher
/// @return a value of BookletFoldMap, or 1 for neither
std::optional<std::int32_t> RunModalBookletFinishingDialog(Gtk::Window* parent,
                                                           const CFBundle& bundle,
                                                           const FinishedSet& current,
                                                           bool offersNone);

} // namespace tarvo
